#include "platform/linux/desktop-files/DesktopEntries.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <sstream>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/linux/desktop-files/ProgramNames.h"

namespace quorvane {

namespace fs = std::filesystem;

namespace {

constexpr off_t largestFile = 1 << 20; // Bytes. No real one comes near it.

std::string environment(const char* name) {
    const char* value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): there is one thread
    return value ? value : "";
}

std::string lastComponent(const std::string& id) {
    return id.substr(id.rfind('.') + 1);
}

/// Empty when it cannot be read. A stream would take twice the time, and all files are read at the program's
/// start.
std::string contents(const fs::path& file) {
    const int descriptor = open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK); // It may be a pipe.
    if (descriptor < 0) return {};
    std::string text;
    struct stat status {};
    if (fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) && status.st_size <= largestFile) {
        text.resize(static_cast<std::size_t>(status.st_size));
        const auto length = read(descriptor, text.data(), text.size());
        text.resize(static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
    }
    close(descriptor);
    return text;
}

fs::file_time_type timeOf(const fs::path& folder) {
    std::error_code error;
    const auto time = fs::last_write_time(folder, error);
    return error ? fs::file_time_type::min() : time;
}

/// The one of the user's texts: the first language wins, unless there is no locale at all.
std::string currentLocale() {
    std::string locale;
    for (const auto* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (locale = environment(name); !locale.empty()) break;
    }
    if (locale.empty() || locale == "C" || locale == "POSIX") return locale;
    const auto languages = environment("LANGUAGE");
    const auto first = languages.substr(0, languages.find(':'));
    return first.empty() ? locale : first;
}

std::string idInFolder(const fs::path& file, const fs::path& folder) {
    auto id = file.lexically_relative(folder).replace_extension().string();
    std::ranges::replace(id, '/', '-');
    return id;
}

} // namespace

DesktopEntries DesktopEntries::ofEnvironment() {
    std::vector<fs::path> folders;
    const auto add = [&](const fs::path& folder) {
        if (folder.is_absolute() && std::ranges::find(folders, folder) == folders.end())
            folders.push_back(folder);
    };
    const fs::path home = environment("HOME");
    const auto dataHome = environment("XDG_DATA_HOME");
    add(dataHome.empty() ? home / ".local/share" : fs::path(dataHome));
    const auto dataFolders = environment("XDG_DATA_DIRS");
    std::istringstream list(dataFolders.empty() ? "/usr/local/share:/usr/share" : dataFolders);
    for (std::string folder; std::getline(list, folder, ':');)
        add(fs::path(folder).lexically_normal());
    add(home / ".local/share/flatpak/exports/share");
    add("/var/lib/flatpak/exports/share");
    add("/var/lib/snapd/desktop");
    return {std::move(folders), currentLocale()};
}

DesktopEntries::DesktopEntries(std::vector<fs::path> dataFolders, std::string_view locale)
    : dataFolders_(std::move(dataFolders))
    , localeSuffixes_(localeSuffixes(locale)) {}

DesktopEntryRef DesktopEntries::withId(std::string_view id) {
    return lookUp([&]() -> DesktopEntryRef {
        const auto candidate = candidates_.find(id);
        if (candidate == candidates_.end()) return nullptr;
        const auto& entry = read(candidate->first, candidate->second);
        const bool isGone = entry && access(entry->path.c_str(), F_OK) != 0;
        return isGone ? nullptr : entry;
    });
}

DesktopEntryRef DesktopEntries::withStartupWmClass(std::string_view wmClass) {
    return find(&DesktopEntries::byStartupWmClass_, std::string(wmClass));
}

DesktopEntryRef DesktopEntries::withIdLike(std::string_view name) {
    return find(&DesktopEntries::byLowerId_, lower(name));
}

DesktopEntryRef DesktopEntries::withProgram(std::string_view program) {
    return find(&DesktopEntries::byProgram_, std::string(program));
}

DesktopEntryRef DesktopEntries::named(std::string_view name) {
    if (name.empty()) return nullptr;
    if (auto entry = withId(name)) return entry;
    return withIdLike(name);
}

DesktopEntryRef DesktopEntries::ofRunningProgram(std::string_view program) {
    if (isInterpreter(program)) return nullptr;
    if (auto entry = withProgram(program)) return entry;
    return named(program);
}

std::vector<DesktopEntryRef> DesktopEntries::all() {
    if (!isListed_ || foldersHaveChanged()) {
        forget();
        list();
    }
    if (!isIndexed_) index();
    std::vector<DesktopEntryRef> entries;
    for (const auto& [id, candidate] : candidates_) {
        if (candidate.entry && access(candidate.entry->path.c_str(), F_OK) == 0)
            entries.push_back(candidate.entry);
    }
    return entries;
}

std::optional<std::string> DesktopEntries::idOfFile(const fs::path& file) const {
    for (const auto& dataFolder : dataFolders_) {
        const auto folder = dataFolder / "applications";
        const auto relative = file.lexically_normal().lexically_relative(folder);
        if (!relative.empty() && *relative.begin() != ".." && *relative.begin() != ".")
            return idInFolder(file.lexically_normal(), folder);
    }
    return std::nullopt;
}

std::optional<DesktopEntry> DesktopEntries::entryInFile(const fs::path& file) const {
    auto entry = parseDesktopEntry(contents(file), localeSuffixes_);
    if (entry) entry->path = file.string();
    return entry;
}

DesktopEntryRef DesktopEntries::lookUp(const std::function<DesktopEntryRef()>& find) {
    if (!isListed_) list();
    if (auto entry = find()) return entry;
    if (!foldersHaveChanged()) return nullptr;
    forget();
    list();
    return find();
}

DesktopEntryRef DesktopEntries::find(Index DesktopEntries::*index, std::string key) {
    if (key.empty()) return nullptr;
    return lookUp([&]() -> DesktopEntryRef {
        if (!isIndexed_) this->index();
        const auto& entries = this->*index;
        const auto entry = entries.find(key);
        return entry == entries.end() ? nullptr : entry->second;
    });
}

const DesktopEntryRef& DesktopEntries::read(const std::string& id, Candidate& candidate) const {
    if (candidate.isRead) return candidate.entry;
    candidate.isRead = true;
    for (const auto& file : candidate.files) {
        auto entry = entryInFile(file);
        if (!entry) continue;
        entry->id = id;
        if (!entry->isHidden) candidate.entry = std::make_shared<const DesktopEntry>(std::move(*entry));
        break;
    }
    return candidate.entry;
}

void DesktopEntries::list() {
    isListed_ = true;
    for (const auto& folder : dataFolders_)
        listFolder(folder / "applications");
}

void DesktopEntries::listFolder(const fs::path& folder) {
    // The clock of file times ticks slowly: what comes right after the last change may bear the same time. A
    // folder that has just changed is therefore taken for changed once more.
    const auto note = [this](const fs::path& each) {
        const auto time = timeOf(each);
        const bool isSettled = fs::file_time_type::clock::now() - time > std::chrono::milliseconds(100);
        folderTimes_[each] = isSettled ? time : fs::file_time_type::max();
    };
    note(folder);
    std::error_code error;
    for (auto it = fs::recursive_directory_iterator(folder, error); !error && it != fs::end(it);
         it.increment(error)) {
        if (it->is_directory(error)) note(it->path());
        if (it->path().extension() != ".desktop") continue;
        candidates_[idInFolder(it->path(), folder)].files.push_back(it->path());
    }
}

void DesktopEntries::index() {
    isIndexed_ = true;
    for (auto& [id, candidate] : candidates_) {
        if (const auto& entry = read(id, candidate)) indexOne(entry);
    }
    // Only now, so that a whole id is always preferred to another one's last part.
    for (const auto& [id, candidate] : candidates_) {
        if (candidate.entry) byLowerId_.try_emplace(lower(lastComponent(id)), candidate.entry);
    }
}

void DesktopEntries::indexOne(const DesktopEntryRef& entry) {
    byLowerId_.try_emplace(lower(entry->id), entry);
    if (!entry->startupWmClass.empty()) {
        auto& known = byStartupWmClass_[entry->startupWmClass];
        if (!known || (known->noDisplay && !entry->noDisplay)) known = entry;
    }
    // A program in a terminal has no window of its own, and what no menu shows is usually another way to open
    // files with an application that has an entry of its own.
    if (entry->program.empty() || entry->runsInTerminal || entry->noDisplay) return;
    const auto [known, isNew] = byProgram_.try_emplace(entry->program, entry);
    if (!isNew) known->second = nullptr;
}

bool DesktopEntries::foldersHaveChanged() const {
    return std::ranges::any_of(folderTimes_,
                               [](const auto& folder) { return timeOf(folder.first) != folder.second; });
}

void DesktopEntries::forget() {
    folderTimes_.clear();
    candidates_.clear();
    isIndexed_ = false;
    byStartupWmClass_.clear();
    byLowerId_.clear();
    byProgram_.clear();
}

} // namespace quorvane
