/*
 * libvarcfg_18.dll: the host's view of the configuration panel plug-in.
 *
 * Usable from C and C++. The plug-in exports twelve plain functions (default calling convention,
 * undecorated names). A host calls them on its user-interface thread, in this order:
 *
 *   1. LoadLibrary("libvarcfg_18.dll"); MDVR_IsEnableDll(1, 18) must return 1, else unload it.
 *   2. MDVR_SetConfigFunction(onRequest, onConfigFile, context): before any panel is shown, because
 *      the first page sends requests at once.
 *   3. MDVR_SetLangPath("C:\\...\\Lang\\English.ini"); MDVR_SetDevType / MDVR_SetDevChannelNum if known.
 *   4. Size a window to MDVR_GetDisplayWidth() x MDVR_GetDisplayHeight() (735 x 600) and call
 *      MDVR_DisplayConfig(window, NULL). Destroying the window closes the panel.
 *   5. In the message loop: if (!MDVR_DllPreTranslateMessage(&msg)) { TranslateMessage(&msg);
 *      DispatchMessage(&msg); }
 *
 * Every exchange with the recorder is one synchronous call of the request callback with mode 0: the
 * plug-in writes XML text into the request record, the host carries it to the recorder and copies the
 * answer into the reply record before returning non-zero (zero means unreachable, timed out or refused).
 * The host must not write more than 2047 bytes of reply text: the record was zeroed, so the text stays
 * terminated.
 */
#ifndef VARCFG_HOST_API_H
#define VARCFG_HOST_API_H

#include <stdint.h>

#ifdef _WIN32
#include <windows.h>
#endif

#ifdef __cplusplus
extern "C" {
#endif

#define MDVR_INTERFACE_KIND 1u
#define MDVR_INTERFACE_VERSION 18
#define MDVR_DISPLAY_WIDTH 735
#define MDVR_DISPLAY_HEIGHT 600

/* Size of a record's text area, and how much of it the plug-in uses. */
#define MDVR_MSG_DATA_SIZE 2060
#define MDVR_MSG_TEXT_USED 2048
/* Two queries (sub stream, parking overtime) use a larger record of the same shape. */
#define MDVR_LARGE_MSG_DATA_SIZE 9708

/* One request or reply: 2064 bytes. The text is 8-bit (ANSI code page) and zero-terminated;
   length counts the text bytes without the terminator. */
typedef struct MDVR_MsgRecord {
    int32_t length;
    char data[MDVR_MSG_DATA_SIZE];
} MDVR_MsgRecord;

typedef struct MDVR_LargeMsgRecord {
    int32_t length;
    char data[MDVR_LARGE_MSG_DATA_SIZE];
} MDVR_LargeMsgRecord;

/* Modes of the request callback. */
#define MDVR_REQUEST_EXCHANGE 0 /* every page exchange */
#define MDVR_REQUEST_GET_ALL 1  /* only the panel's hidden get-parameters button */

/* Modes of the configuration-file callback. */
#define MDVR_CONFIG_FILE_EXPORT 0
#define MDVR_CONFIG_FILE_IMPORT 1

/* Carries one request to the recorder; non-zero when the reply record was filled. */
typedef int32_t (*MDVR_DeviceRequestFn)(int32_t mode, MDVR_MsgRecord* request, MDVR_MsgRecord* reply,
                                        void* context);
/* Asks the host to import (mode 1) or export (mode 0) the recorder's whole configuration. */
typedef int32_t (*MDVR_ConfigFileFn)(int32_t mode, const char* path, void* context);

#ifdef _WIN32
/* 1 exactly for kind 1, version 18. */
int32_t MDVR_IsEnableDll(uint32_t kind, int32_t version);
/* Stores both callbacks and the context handed back on every call; may be called again. */
void MDVR_SetConfigFunction(MDVR_DeviceRequestFn onRequest, MDVR_ConfigFileFn onConfigFile, void* context);
/* Names the language file (8-bit path); also names the log. Always 1. */
int32_t MDVR_SetLangPath(const char* languageFile);
/* Kept for the host's benefit; the panel sizes itself from the recorder's model. Always 1. */
int32_t MDVR_SetDevType(uint32_t deviceType);
/* 1 for a count from 1 to 15, else 0; stores nothing. */
int32_t MDVR_SetDevChannelNum(int32_t channelCount);
/* Creates a further panel covering the parent's client area. Always 0. */
int32_t MDVR_DisplayConfig(HWND parent, void* reserved);
int32_t MDVR_GetDisplayWidth(void);
int32_t MDVR_GetDisplayHeight(void);
/* Non-zero when the plug-in consumed the message (for example Tab navigation). */
int32_t MDVR_DllPreTranslateMessage(MSG* message);
/* Both do nothing and return 1; they are one entry point. */
int32_t MDVR_ActivePage(void* reserved);
int32_t MDVR_SaveLocalCfgFile(void* reserved);
/* Always 0: the plug-in never loads a local configuration file on its own. */
int32_t MDVR_IsLoadConfigFile(void);

/* Pointer types for hosts that bind the exports with GetProcAddress. */
typedef int32_t (*MDVR_IsEnableDllFn)(uint32_t, int32_t);
typedef void (*MDVR_SetConfigFunctionFn)(MDVR_DeviceRequestFn, MDVR_ConfigFileFn, void*);
typedef int32_t (*MDVR_SetLangPathFn)(const char*);
typedef int32_t (*MDVR_SetDevTypeFn)(uint32_t);
typedef int32_t (*MDVR_SetDevChannelNumFn)(int32_t);
typedef int32_t (*MDVR_DisplayConfigFn)(HWND, void*);
typedef int32_t (*MDVR_GetDisplaySizeFn)(void);
typedef int32_t (*MDVR_DllPreTranslateMessageFn)(MSG*);
typedef int32_t (*MDVR_AcceptAnyFn)(void*);
typedef int32_t (*MDVR_IsLoadConfigFileFn)(void);
#endif

#ifdef __cplusplus
}
#endif

#endif /* VARCFG_HOST_API_H */
