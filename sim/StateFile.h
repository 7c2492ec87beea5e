// The file a simulated recorder keeps its settings in. It holds passwords in clear, so a new file is
// made readable by its owner only, and an existing file keeps its mode; a symbolic link is followed and
// stays a link.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace varcfg::sim {

class StateFile {
public:
    explicit StateFile(std::filesystem::path path);

    const std::filesystem::path& Path() const { return path_; }

    // Why the file cannot keep settings: it is not a regular file (a folder, a named pipe), cannot be
    // read or written, its folder is missing or cannot be written, or the temporary file beside it is in
    // the way. Empty when it can. Opens nothing but regular files, so a named pipe never blocks.
    std::string Fault() const;

    // The file's text; nothing when it does not exist yet, or when it cannot be read (problem then says
    // why).
    std::optional<std::string> Read(std::string& problem) const;

    // Replaces the file's text: writes it beside the file (beside a link's target) and renames it over
    // the file, so that a crash of this program leaves the old text or the new. Empty on success, or why
    // the text could not be saved.
    std::string Write(const std::string& text) const;

private:
    // The file that holds the text: the path, or the file its symbolic links lead to.
    std::filesystem::path Target() const;

    std::filesystem::path path_;
};

}  // namespace varcfg::sim
