// Opens and closes the whole panel many times in one host window and watches the process's GDI and
// USER objects and its private memory. The default run is short; VARCFG_PANEL_CYCLES=1000 gives the
// long one. It also times the opening on the user-interface thread with a recorder that answers at once.
#include <windows.h>

#include <commctrl.h>
#include <psapi.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "HostCallback.h"
#include "TestHostWindow.h"
#include "channel/HostBridge.h"
#include "shell/CDlgParam.h"
#include "channel/DeviceVersion.h"
#include "ui/win/ModuleState.h"

using namespace varcfg;

namespace {

struct Usage {
    unsigned long gdiObjects;
    unsigned long userObjects;
    std::size_t privateBytes;
};

// Wine's GetGuiResources counts nothing: there, count the live GDI objects (a handle with a zero upper
// word names its slot whatever its generation) and the windows of this thread.
unsigned long LiveGdiObjects() {
    unsigned long count = 0;
    for (uintptr_t slot = 1; slot < 0x10000; ++slot) {
        if (GetObjectType(reinterpret_cast<HGDIOBJ>(slot)) != 0) ++count;
    }
    return count;
}

BOOL CALLBACK CountWindow(HWND window, LPARAM count) {
    ++*reinterpret_cast<unsigned long*>(count);
    EnumChildWindows(window, CountWindow, count);
    return TRUE;
}

unsigned long ThreadWindows() {
    unsigned long count = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountWindow, reinterpret_cast<LPARAM>(&count));
    return count;
}

Usage Measure() {
    Usage usage{GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS),
                GetGuiResources(GetCurrentProcess(), GR_USEROBJECTS), 0};
    if (usage.gdiObjects == 0) usage.gdiObjects = LiveGdiObjects();
    if (usage.userObjects == 0) usage.userObjects = ThreadWindows();
    PROCESS_MEMORY_COUNTERS_EX memory{};
    memory.cb = sizeof memory;
    GetProcessMemoryInfo(GetCurrentProcess(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory), sizeof memory);
    usage.privateBytes = memory.PrivateUsage != 0 ? memory.PrivateUsage : memory.PagefileUsage;
    return usage;
}

// What the platform's own IP address control loses when it is destroyed (Wine 8 loses a GDI object
// and some memory each; Windows nothing), so that the panel is not blamed for it.
struct Loss {
    double gdiObjects;
    double privateBytes;
};

Loss LostPerIpControl(HWND parent) {
    constexpr int kSamples = 200;
    const Usage before = Measure();
    for (int i = 0; i < kSamples; ++i) {
        DestroyWindow(CreateWindowW(WC_IPADDRESSW, L"", WS_CHILD | WS_VISIBLE, 0, 0, 120, 20, parent, nullptr, nullptr, nullptr));
    }
    const Usage after = Measure();
    const double bytes = after.privateBytes > before.privateBytes ? double(after.privateBytes - before.privateBytes) : 0.0;
    return {static_cast<double>(after.gdiObjects - before.gdiObjects) / kSamples, bytes / kSamples};
}

// Memory the platform keeps when every dialog template of the module is created and destroyed once,
// with none of the panel's own code running (Wine keeps some kilobytes each time; Windows nothing).
class BareDialog : public Dialog {
public:
    explicit BareDialog(int templateId) : Dialog(templateId) {}
};

BOOL CALLBACK CollectTemplate(HMODULE, LPCWSTR, LPWSTR name, LONG_PTR ids) {
    if (IS_INTRESOURCE(name)) reinterpret_cast<std::vector<int>*>(ids)->push_back(static_cast<int>(reinterpret_cast<uintptr_t>(name)));
    return TRUE;
}

double BytesKeptPerBareCycle(HWND parent) {
    std::vector<int> templates;
    EnumResourceNamesW(ResourceModule(), MAKEINTRESOURCEW(5), CollectTemplate, reinterpret_cast<LONG_PTR>(&templates));
    auto cycle = [&] {
        for (int id : templates) BareDialog(id).Create(parent);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    };
    constexpr int kSamples = 20;
    cycle();
    const std::size_t before = Measure().privateBytes;
    for (int i = 0; i < kSamples; ++i) cycle();
    const std::size_t after = Measure().privateBytes;
    return after > before ? static_cast<double>(after - before) / kSamples : 0.0;
}

BOOL CALLBACK CountIpControl(HWND window, LPARAM count) {
    wchar_t name[32] = {};
    GetClassNameW(window, name, 32);
    if (lstrcmpiW(name, WC_IPADDRESSW) == 0) ++*reinterpret_cast<int*>(count);
    return TRUE;
}

double ThreadCpuMilliseconds() {
    FILETIME created, exited, kernel, user;
    GetThreadTimes(GetCurrentThread(), &created, &exited, &kernel, &user);
    auto ticks = [](const FILETIME& t) { return (static_cast<unsigned long long>(t.dwHighDateTime) << 32) | t.dwLowDateTime; };
    return static_cast<double>(ticks(kernel) + ticks(user)) / 10000.0;
}

void PumpPending() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

// The templates of every dialog in the panel's window tree, the panel's own first.
BOOL CALLBACK CollectPanelTemplate(HWND window, LPARAM ids) {
    if (const Dialog* dialog = Dialog::FromHandle(window)) {
        reinterpret_cast<std::vector<int>*>(ids)->push_back(dialog->TemplateId());
    }
    return TRUE;
}

INT_PTR CALLBACK BareDialogProc(HWND, UINT message, WPARAM, LPARAM) { return message == WM_INITDIALOG; }

double WallMilliseconds(const LARGE_INTEGER& start, const LARGE_INTEGER& end) {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return 1000.0 * static_cast<double>(end.QuadPart - start.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

// What opening the panel costs beside what the window system takes to create and destroy the same
// dialog templates with none of the panel's code running: the difference is the panel's own share.
// The two are measured in turns, so that a busy machine slows both alike. CI takes 20 pairs;
// VARCFG_TIMING_PAIRS=100 gives the figure over 100.
TEST(PanelTiming, OpeningThePanelBesideCreatingItsDialogTemplatesBare) {
    const char* configured = std::getenv("VARCFG_TIMING_PAIRS");
    const int pairs = configured != nullptr ? std::max(1, std::atoi(configured)) : 20;
    sim::SimulatedRecorder recorder("MR8-O1");
    SetConfigFunction(sim::AnswerHostRequest, nullptr, &recorder);
    Device() = DeviceState{};
    varcfg::test::HostWindow host;

    std::vector<int> templates;
    CDlgParam* sample = CDlgParam::CreateIn(host);
    ASSERT_NE(sample, nullptr);
    CollectPanelTemplate(sample->Hwnd(), reinterpret_cast<LPARAM>(&templates));
    EnumChildWindows(sample->Hwnd(), CollectPanelTemplate, reinterpret_cast<LPARAM>(&templates));
    DestroyWindow(sample->Hwnd());
    PumpPending();

    std::vector<double> panelMs, panelCpuMs, bareMs, bareCpuMs;
    for (int i = 0; i < pairs; ++i) {
        LARGE_INTEGER start, end;
        double cpuStart = ThreadCpuMilliseconds();
        QueryPerformanceCounter(&start);
        CDlgParam* panel = CDlgParam::CreateIn(host);
        ASSERT_NE(panel, nullptr);
        DestroyWindow(panel->Hwnd());
        PumpPending();
        QueryPerformanceCounter(&end);
        panelMs.push_back(WallMilliseconds(start, end));
        panelCpuMs.push_back(ThreadCpuMilliseconds() - cpuStart);

        cpuStart = ThreadCpuMilliseconds();
        QueryPerformanceCounter(&start);
        {
            ModuleState moduleState;
            std::vector<HWND> dialogs;
            for (int id : templates) {
                dialogs.push_back(CreateDialogParamW(ResourceModule(), MAKEINTRESOURCEW(id), host, BareDialogProc, 0));
            }
            for (HWND dialog : dialogs) DestroyWindow(dialog);
        }
        PumpPending();
        QueryPerformanceCounter(&end);
        bareMs.push_back(WallMilliseconds(start, end));
        bareCpuMs.push_back(ThreadCpuMilliseconds() - cpuStart);
    }
    host.Destroy();
    SetConfigFunction(nullptr, nullptr, nullptr);

    std::printf("  open and close, median of %zu: panel %.1f ms (UI-thread CPU %.1f ms); its %zu dialog templates "
                "created and destroyed bare %.1f ms (%.1f ms); the panel's own share %.1f ms (%.1f ms)\n",
                panelMs.size(), Median(panelMs), Median(panelCpuMs), templates.size(), Median(bareMs),
                Median(bareCpuMs), Median(panelMs) - Median(bareMs), Median(panelCpuMs) - Median(bareCpuMs));
}

TEST(PanelResources, OpeningAndClosingThePanelDoesNotGrowHandlesOrMemory) {
    const char* configured = std::getenv("VARCFG_PANEL_CYCLES");
    const int cycles = configured != nullptr ? std::max(100, std::atoi(configured)) : 100;

    sim::SimulatedRecorder recorder("MR8-O1");
    SetConfigFunction(sim::AnswerHostRequest, nullptr, &recorder);
    Device() = DeviceState{};
    varcfg::test::HostWindow host;

    std::vector<double> wallMs, cpuMs;
    auto cycle = [&] {
        LARGE_INTEGER frequency, start, end;
        QueryPerformanceFrequency(&frequency);
        const double cpuStart = ThreadCpuMilliseconds();
        QueryPerformanceCounter(&start);
        CDlgParam* panel = CDlgParam::CreateIn(host);
        QueryPerformanceCounter(&end);
        cpuMs.push_back(ThreadCpuMilliseconds() - cpuStart);
        wallMs.push_back(1000.0 * static_cast<double>(end.QuadPart - start.QuadPart) / static_cast<double>(frequency.QuadPart));
        ASSERT_NE(panel, nullptr);
        PumpPending();
        DestroyWindow(panel->Hwnd());
        PumpPending();
    };

    // The first cycles load fonts, images and caches that stay for the process: measure after them.
    for (int i = 0; i < 10; ++i) cycle();
    int ipControls = 0;
    CDlgParam* sample = CDlgParam::CreateIn(host);
    EnumChildWindows(sample->Hwnd(), CountIpControl, reinterpret_cast<LPARAM>(&ipControls));
    DestroyWindow(sample->Hwnd());
    const Loss platformLoss = LostPerIpControl(host);
    const double bareBytes = BytesKeptPerBareCycle(host);
    std::printf("  the platform keeps %.0f bytes per creation of every dialog template\n", bareBytes);
    std::printf("  the platform loses %.2f GDI objects and %.0f bytes per IP address control; the panel has %d\n",
                platformLoss.gdiObjects, platformLoss.privateBytes, ipControls);
    const Usage baseline = Measure();
    std::printf("  %6s %8s %8s %14s\n", "cycles", "GDI", "USER", "private bytes");
    std::printf("  %6d %8lu %8lu %14zu\n", 0, baseline.gdiObjects, baseline.userObjects, baseline.privateBytes);
    Usage last = baseline;
    for (int i = 1; i <= cycles; ++i) {
        cycle();
        if (i % 100 == 0) {
            last = Measure();
            std::printf("  %6d %8lu %8lu %14zu\n", i, last.gdiObjects, last.userObjects, last.privateBytes);
        }
    }
    host.Destroy();
    SetConfigFunction(nullptr, nullptr, nullptr);

    // Small fixed allowances: caches and heap fragmentation, not per-cycle growth.
    const double platformCycles = static_cast<double>(ipControls) * cycles;
    EXPECT_LE(static_cast<double>(last.gdiObjects), baseline.gdiObjects + platformLoss.gdiObjects * platformCycles + 16);
    EXPECT_LE(last.userObjects, baseline.userObjects + 16);
    EXPECT_LE(static_cast<double>(last.privateBytes),
              static_cast<double>(baseline.privateBytes) + platformLoss.privateBytes * platformCycles +
                  1.5 * bareBytes * cycles + 4.0 * 1024 * 1024);

    std::sort(wallMs.begin(), wallMs.end());
    std::sort(cpuMs.begin(), cpuMs.end());
    std::printf("  panel open over %zu cycles: median %.1f ms (UI-thread CPU %.1f ms), slowest %.1f ms\n",
                wallMs.size(), wallMs[wallMs.size() / 2], cpuMs[cpuMs.size() / 2], wallMs.back());
}
