#!/usr/bin/env bash
# Checks a built libvarcfg_18.dll: it exports exactly the twelve MDVR_ names, undecorated, and imports
# only from Windows' own DLLs (the C++ runtime and winpthread are linked in). A program (.exe) shipped
# beside it is checked for its imports only.
set -euo pipefail
dll=$1 objdump=$2
dump=$("$objdump" -p "$dll")
allowed='^(kernel32|user32|gdi32|gdiplus|comctl32|comdlg32|shell32|shlwapi|ole32|oleaut32|advapi32|uxtheme|msvcrt|ws2_32|api-ms-win-crt-[a-z-]+-l1-1-0)\.dll$'
imports=$(printf '%s\n' "$dump" | sed -n 's/^\s*DLL Name: //p' | tr 'A-Z' 'a-z' | sort -u)
bad=$(printf '%s\n' "$imports" | grep -Ev "$allowed" || true)
if [ -n "$bad" ]; then
  echo "FAIL: $(basename "$dll") imports from DLLs that are not part of Windows:"; echo "$bad"; exit 1
fi
if [[ "$dll" == *.exe ]]; then
  echo "$(basename "$dll") imports: $(echo $imports)"
  exit 0
fi

expected="MDVR_ActivePage
MDVR_DisplayConfig
MDVR_DllPreTranslateMessage
MDVR_GetDisplayHeight
MDVR_GetDisplayWidth
MDVR_IsEnableDll
MDVR_IsLoadConfigFile
MDVR_SaveLocalCfgFile
MDVR_SetConfigFunction
MDVR_SetDevChannelNum
MDVR_SetDevType
MDVR_SetLangPath"
# Rows of the name pointer table look like "	[   0] +base[   1] MDVR_ActivePage".
exports=$(printf '%s\n' "$dump" | sed -n '/\[Ordinal\/Name Pointer\] Table/,/^$/p' | sed -n 's/^\s*\[ *[0-9]*\] *\(+base\[ *[0-9]*\] *\)\?//p' | sort)
if [ "$exports" != "$expected" ]; then
  echo "FAIL: exports differ from the twelve MDVR_ names:"; diff <(echo "$expected") <(echo "$exports") || true
  exit 1
fi

# Both names of the do-nothing entry point lead to the same address.
active=$(printf '%s\n' "$dump" | grep -c 'MDVR_ActivePage\|MDVR_SaveLocalCfgFile')
[ "$active" -ge 2 ] || { echo "FAIL: MDVR_ActivePage / MDVR_SaveLocalCfgFile missing"; exit 1; }

echo "exports: $(echo "$exports" | wc -l) MDVR_ names; imports: $(echo $imports)"
