#include "StateFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <iterator>
#include <system_error>

#ifndef _WIN32
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace varcfg::sim {
namespace fs = std::filesystem;
namespace {

constexpr int kMostLinks = 40;  // as many as the system follows before it gives up on a loop
std::string KindOf(fs::file_type type) {
    switch (type) {
        case fs::file_type::directory:
            return "a folder";
        case fs::file_type::fifo:
            return "a named pipe";
        case fs::file_type::socket:
            return "a socket";
        case fs::file_type::block:
        case fs::file_type::character:
            return "a device";
        default:
            return "not a regular file";
    }
}

fs::path TemporaryBeside(const fs::path& target) {
    fs::path temporary = target;
    temporary += ".tmp";
    return temporary;
}

fs::path FolderOf(const fs::path& target) { return target.has_parent_path() ? target.parent_path() : fs::path("."); }

// Opens the temporary file for writing, created empty with owner-only access (an existing one is
// emptied). A link in its place is not followed.
std::FILE* CreatePrivate(const fs::path& path) {
#ifdef _WIN32
    return _wfopen(path.c_str(), L"wb");
#else
    const int descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (descriptor < 0) return nullptr;
    std::FILE* file = fdopen(descriptor, "wb");
    if (file == nullptr) close(descriptor);
    return file;
#endif
}

}  // namespace

StateFile::StateFile(fs::path path) : path_(std::move(path)) {}

fs::path StateFile::Target() const {
    fs::path target = path_;
    std::error_code error;
    for (int hops = 0; hops < kMostLinks && fs::is_symlink(target, error); ++hops) {
        const fs::path next = fs::read_symlink(target, error);
        if (error) break;
        target = next.is_absolute() ? next : FolderOf(target) / next;
    }
    return target;
}

std::string StateFile::Fault() const {
    const fs::path target = Target();
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    if (fs::exists(status)) {
        if (!fs::is_regular_file(status)) return target.string() + " is " + KindOf(status.type()) + ", not a file";
        // "r+" opens for reading and writing without changing a byte.
        std::FILE* file = std::fopen(target.string().c_str(), "r+b");
        if (file == nullptr) return target.string() + " cannot be read and written: " + std::strerror(errno);
        std::fclose(file);
    } else {
        const fs::path folder = FolderOf(target);
        if (!fs::is_directory(folder, error)) return "the folder " + folder.string() + " does not exist";
    }

    const fs::path temporary = TemporaryBeside(target);
    const fs::file_status temporaryStatus = fs::symlink_status(temporary, error);
    if (fs::exists(temporaryStatus)) {
        if (!fs::is_regular_file(temporaryStatus)) {
            return temporary.string() + " is in the way: it is " + KindOf(temporaryStatus.type()) +
                   " where the new text is written before it replaces the file";
        }
        return {};  // a temporary file left by a crash: it is written over
    }
    std::FILE* probe = CreatePrivate(temporary);
    if (probe == nullptr) return "cannot write in the folder " + FolderOf(target).string() + ": " + std::strerror(errno);
    std::fclose(probe);
    fs::remove(temporary, error);
    return {};
}

std::optional<std::string> StateFile::Read(std::string& problem) const {
    const fs::path target = Target();
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    if (!fs::exists(status)) return std::nullopt;  // the first start: factory values until something is saved
    if (!fs::is_regular_file(status)) {
        problem = target.string() + " is " + KindOf(status.type()) + ", not a file";
        return std::nullopt;
    }
    std::ifstream in(target, std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    if (!in && !in.eof()) {
        problem = target.string() + " cannot be read";
        return std::nullopt;
    }
    return text;
}

std::string StateFile::Write(const std::string& text) const {
    const fs::path target = Target();
    const fs::path temporary = TemporaryBeside(target);
    std::error_code error;
    std::FILE* file = CreatePrivate(temporary);
    if (file == nullptr) return "cannot save the settings: " + temporary.string() + ": " + std::strerror(errno);
#ifndef _WIN32
    // An existing file keeps its mode; the text is written only once the mode is set.
    const fs::file_status existing = fs::status(target, error);
    if (fs::exists(existing)) fs::permissions(temporary, existing.permissions(), error);
#endif
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    const int writeError = errno;
    const bool closed = std::fclose(file) == 0;
    if (!written || !closed) {
        const int reason = written ? errno : writeError;
        fs::remove(temporary, error);
        return "cannot save the settings: " + temporary.string() + ": " + std::strerror(reason);
    }
    fs::rename(temporary, target, error);
    if (error) {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        return "cannot save the settings: cannot replace " + target.string() + ": " + error.message();
    }
    return {};
}

}  // namespace varcfg::sim
