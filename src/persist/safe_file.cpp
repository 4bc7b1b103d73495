#include "persist/safe_file.h"
#include <algorithm>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace sm {
namespace fs = std::filesystem;
namespace {

constexpr std::string_view TEMPORARY_START = ".stonemarch-";
constexpr std::string_view TEMPORARY_END = ".part";

/// One open descriptor. Closing by hand tells whether it went well; the destructor is for the ways out.
class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    ~Descriptor()
    {
        if (number_ >= 0) ::close(number_);
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    bool Valid() const { return number_ >= 0; }
    int Number() const { return number_; }
    /// An interrupted close has closed: Linux frees the number first.
    bool Close() { return ::close(std::exchange(number_, -1)) == 0 || errno == EINTR; }

private:
    int number_;
};

/// Calls again as long as a signal interrupts.
template <class Call>
auto Uninterrupted(Call call)
{
    decltype(call()) result;
    do {
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

/// The system's own words in English, whatever the locale.
std::string Reason(int error)
{
    const char* words = ::strerrordesc_np(error);
    return words ? words : "error " + std::to_string(error);
}

std::string Failure(const char* what, const fs::path& file, const std::string& why)
{
    return std::string(what) + " \"" + file.string() + "\": " + why;
}

bool Write_All(int descriptor, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t n = Uninterrupted([&] { return ::write(descriptor, content.data(), content.size()); });
        if (n < 0) return false;
        if (n == 0) {   // a device that takes nothing and says nothing would hold us for ever
            errno = EIO;
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

/// The process in a temporary's name, 0 for any other name.
int Writer_Of_Temporary(std::string_view name)
{
    if (!name.starts_with(TEMPORARY_START) || !name.ends_with(TEMPORARY_END)) return 0;
    const char* const first = name.data() + TEMPORARY_START.size();
    const char* const last = name.data() + name.size();
    int process = 0;
    const auto [end, error] = std::from_chars(first, last, process);
    return error == std::errc() && end != last && *end == '-' && process > 0 ? process : 0;
}

/// A new file beside the target, under a name that no other writer has: the process, and a count within it. A name
/// already taken was left by a killed process of the same number, and the next one is tried.
Descriptor Make_Temporary(const fs::path& folder, mode_t permissions, fs::path& name)
{
    static int count = 0;
    int descriptor;
    do {
        name = folder / (std::string(TEMPORARY_START) + std::to_string(::getpid()) + "-" +
                         std::to_string(++count) + std::string(TEMPORARY_END));
        descriptor = Uninterrupted(
            [&] { return ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, permissions); });
    } while (descriptor < 0 && errno == EEXIST);
    return Descriptor(descriptor);
}

/// Content and permissions into the temporary, down to the disk, and the target's name onto it.
/// 0, or the error number.
int Fill_And_Rename(Descriptor& file, std::string_view content, const struct stat* old, const fs::path& temporary,
                    const fs::path& target)
{
    if (old && ::fchmod(file.Number(), old->st_mode & 07777) != 0) return errno;
    if (!Write_All(file.Number(), content)) return errno;
    if (Uninterrupted([&] { return ::fsync(file.Number()); }) != 0) return errno;
    if (!file.Close()) return errno;
    return ::rename(temporary.c_str(), target.c_str()) == 0 ? 0 : errno;
}

/// The new name down to the disk. 0, or the error number.
int Sync_Folder(const fs::path& folder)
{
    Descriptor open_folder(
        Uninterrupted([&] { return ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); }));
    if (!open_folder.Valid()) return errno;
    // Some network and foreign file systems cannot sync a folder at all, which is no fault of this save.
    if (Uninterrupted([&] { return ::fsync(open_folder.Number()); }) != 0 && errno != EINVAL && errno != ENOTSUP)
        return errno;
    return open_folder.Close() ? 0 : errno;
}

}   // namespace

std::string Write_File_Whole(const fs::path& named, std::string_view content)
{
    const auto refused = [&](const std::string& why) { return Failure("Cannot write", named, why); };
    if (named.filename().empty()) return refused("no file name");

    std::error_code error;
    fs::path target = named;
    if (fs::is_symlink(named, error)) {
        target = fs::canonical(named, error);
        if (error) return refused(Reason(error.value()));
    }

    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return refused(Reason(errno));
    if (exists && !S_ISREG(old.st_mode)) return refused("not a plain file");
    if (exists && ::access(target.c_str(), W_OK) != 0) return refused(Reason(errno));

    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    fs::path temporary;
    Descriptor file = Make_Temporary(folder, exists ? old.st_mode & 0777 : 0666, temporary);
    if (!file.Valid()) return refused(Reason(errno));
    int failed = Fill_And_Rename(file, content, exists ? &old : nullptr, temporary, target);
    if (failed != 0) {
        ::unlink(temporary.c_str());
        return refused(Reason(failed));
    }

    failed = Sync_Folder(folder);
    return failed == 0 ? "" : Failure("Written, but the disk did not confirm", named, Reason(failed));
}

void Remove_Leftover_Temporaries(const fs::path& folder)
{
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const int process = Writer_Of_Temporary(entry->path().filename().string());
        if (process > 0 && ::kill(process, 0) != 0 && errno == ESRCH) ::unlink(entry->path().c_str());
    }
}

FILE_READ Read_File_Whole(const fs::path& named, std::size_t most)
{
    FILE_READ result;
    const auto refused = [&](const std::string& why) {
        return FILE_READ{.CONTENT = {}, .ERROR = Failure("Cannot read", named, why)};
    };

    // Non-blocking, or opening a pipe would wait for its other end.
    Descriptor file(
        Uninterrupted([&] { return ::open(named.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY); }));
    if (!file.Valid()) {
        const bool missing = errno == ENOENT || errno == ENOTDIR;
        result = refused(missing ? "no such file" : Reason(errno));
        result.MISSING = missing;
        return result;
    }
    struct stat about {};
    if (::fstat(file.Number(), &about) != 0) return refused(Reason(errno));
    if (!S_ISREG(about.st_mode)) return refused("not a plain file");

    // The size is only a first guess: the file may grow or shrink while it is read. One byte more than wanted is
    // asked for, so that a file of exactly `most` bytes passes and a longer one shows.
    std::string& content = result.CONTENT;
    std::size_t got = 0;
    content.resize(std::min<std::size_t>(static_cast<std::size_t>(about.st_size), most) + 1);
    for (;;) {
        const ssize_t n =
            Uninterrupted([&] { return ::read(file.Number(), &content[got], content.size() - got); });
        if (n < 0) return refused(Reason(errno));
        if (n == 0) break;
        got += static_cast<std::size_t>(n);
        if (got > most) return refused("longer than " + std::to_string(most) + " bytes");
        if (got == content.size()) content.resize(std::min(got * 2, most + 1));
    }
    content.resize(got);
    return result;
}

}   // namespace sm
