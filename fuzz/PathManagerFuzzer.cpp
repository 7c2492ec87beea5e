// The path manager's reading of profile values: colour triples on their own, then a whole load from a
// platform whose every answer (profile texts and numbers, folders, which files exist, the screen DPI)
// comes from the input, followed by an image lookup.
//
// - A colour written as "r,g,b" reads back as its low three bytes.
// - An image lookup reports scale 200 only for an image it found.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cwchar>
#include <string>

#include "ui/PathManager.h"
#include "base/Platform.h"

namespace {

void Require(bool condition) {
    if (!condition) std::abort();
}

// Profile texts are 16-bit on Windows, but only ASCII digits, signs, blanks and commas mean anything to
// the parsing: each input byte becomes one character.
std::wstring WideText(FuzzedDataProvider& input) {
    const std::string bytes = input.ConsumeRandomLengthString();
    return std::wstring(bytes.begin(), bytes.end());
}

class InputPlatform : public varcfg::Platform {
public:
    explicit InputPlatform(FuzzedDataProvider& input) : input_(input) { varcfg::InstallPlatform(this); }
    ~InputPlatform() override { varcfg::InstallPlatform(nullptr); }

    InputPlatform(const InputPlatform&) = delete;
    InputPlatform& operator=(const InputPlatform&) = delete;

    // As the Windows profile reader: the value, or the default when the key is missing, cut to fit.
    std::wstring ReadProfileText(const std::wstring&, const std::wstring&, const std::wstring&,
                                 const std::wstring& defaultValue, std::size_t bufferSize) override {
        const std::wstring value = input_.ConsumeBool() ? WideText(input_) : defaultValue;
        return value.substr(0, bufferSize > 0 ? bufferSize - 1 : 0);
    }
    int ReadProfileInt(const std::wstring&, const std::wstring&, const std::wstring&, int defaultValue) override {
        if (!input_.ConsumeBool()) return defaultValue;
        return static_cast<int>(std::wcstol(WideText(input_).c_str(), nullptr, 10));
    }
    void WriteProfileText(const std::wstring&, const std::wstring&, const std::wstring&,
                          const std::wstring&) override {}
    bool CanOpenForReading(const std::wstring&) override { return input_.ConsumeBool(); }
    bool ReadWholeFile(const std::wstring&, std::string&) override { return false; }
    bool FileExists(const std::wstring&) override { return input_.ConsumeBool(); }
    std::wstring ModuleFolder() override { return WideText(input_); }
    std::wstring HostExecutablePath() override { return WideText(input_); }
    std::wstring RoamingAppDataFolder() override { return WideText(input_); }
    std::wstring FullPath(const std::wstring& path) override { return input_.ConsumeBool() ? WideText(input_) : path; }
    int SystemDpi() override { return input_.ConsumeIntegral<int>(); }
    uint32_t ButtonTextColour() override { return input_.ConsumeIntegral<uint32_t>(); }
    uint32_t ButtonFaceColour() override { return input_.ConsumeIntegral<uint32_t>(); }

private:
    FuzzedDataProvider& input_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);

    varcfg::ParseColourTriple(WideText(input));
    const uint32_t colour = input.ConsumeIntegral<uint32_t>();
    Require(varcfg::ParseColourTriple(varcfg::FormatColourTriple(colour)) == (colour & 0xFFFFFFu));

    InputPlatform platform(input);
    CPathManager manager;
    manager.Load();
    manager.ScreenDpi();
    const std::wstring name = WideText(input);
    const bool highDpiVariants = input.ConsumeBool();
    int scale = 0;
    const std::wstring image = manager.ResolveImagePath(name, highDpiVariants, &scale);
    Require(scale == 100 || (scale == 200 && !image.empty()));
    return 0;
}
