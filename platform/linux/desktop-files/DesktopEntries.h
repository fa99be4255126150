#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/linux/desktop-files/DesktopEntry.h"

namespace quorvane {

using DesktopEntryRef = std::shared_ptr<const DesktopEntry>;

/// The installed applications, by their `.desktop` files.
///
/// A file in a sub-folder has the folder's name in its id ("kde/kate.desktop" is "kde-kate"). Of several
/// files with one id the first readable and well-formed one counts, and if that one says Hidden=true there is
/// no such application. Nothing is read before the first question: looking up an id lists the folders and
/// reads one file, any other look-up reads all files. When an answer is missing and a folder has changed
/// meanwhile, everything is read again.
class DesktopEntries {
public:
    /// Reads the `applications` folders of these data folders, first hit first, for a POSIX locale name.
    DesktopEntries(std::vector<std::filesystem::path> dataFolders, std::string_view locale);

    /// The data folders and the locale that the environment names, Flatpak's and Snap's exports included.
    static DesktopEntries ofEnvironment();

    // Null when there is none.
    DesktopEntryRef withId(std::string_view id);
    DesktopEntryRef withStartupWmClass(std::string_view wmClass);

    /// By the id without regard to case, or else by the last part of a reverse-DNS id: "kate" and "Kate" find
    /// "org.kde.kate".
    DesktopEntryRef withIdLike(std::string_view name);

    /// By the id, or else by what is like it.
    DesktopEntryRef named(std::string_view name);

    /// The one application for the desktop that starts this program; null when several do, because then the
    /// program (an interpreter, a launcher) does not tell which application it is.
    DesktopEntryRef withProgram(std::string_view program);

    /// The application that a running program of this name is: the one that starts it, or else the one that
    /// is named like it. Null for an interpreter, which does not tell which application it runs.
    DesktopEntryRef ofRunningProgram(std::string_view program);

    /// All of them, sorted by id, as they are installed now.
    std::vector<DesktopEntryRef> all();

    /// The id of a file in one of the folders, whether it counts or not; none for a file elsewhere.
    std::optional<std::string> idOfFile(const std::filesystem::path& file) const;

    /// What a file says, wherever it is: with its path, without an id. None when it describes no application.
    std::optional<DesktopEntry> entryInFile(const std::filesystem::path& file) const;

private:
    struct Candidate {
        std::vector<std::filesystem::path> files; ///< Best first.
        DesktopEntryRef entry;
        bool isRead = false;
    };
    using Index = std::unordered_map<std::string, DesktopEntryRef>;

    DesktopEntryRef lookUp(const std::function<DesktopEntryRef()>& find);
    DesktopEntryRef find(Index DesktopEntries::*index, std::string key);
    const DesktopEntryRef& read(const std::string& id, Candidate& candidate) const;
    void list();
    void listFolder(const std::filesystem::path& folder);
    void index();
    void indexOne(const DesktopEntryRef& entry);
    bool foldersHaveChanged() const;
    void forget();

    std::vector<std::filesystem::path> dataFolders_;
    std::vector<std::string> localeSuffixes_;

    bool isListed_ = false;
    std::map<std::filesystem::path, std::filesystem::file_time_type> folderTimes_;
    std::map<std::string, Candidate, std::less<>> candidates_; ///< By id.

    bool isIndexed_ = false;
    Index byStartupWmClass_;
    Index byLowerId_;
    Index byProgram_; ///< Null for a program of several applications.
};

} // namespace quorvane
