#include <gtest/gtest.h>

#include "platform/linux/desktop-files/DesktopEntries.h"
#include "platform/linux/x11/CompoundText.h"
#include "virtual-desktop/ScratchFolders.h"

namespace quorvane {
namespace {

TEST(DesktopEntry, ReadsWellFormedAndRefusesMalformedFiles) {
    // A file, and its name, icon, program and class; empty for a refused one.
    const std::pair<const char*, const char*> files[] = {
        {"[Desktop Entry]\nType=Application\nName=P\nIcon=i\nExec=/usr/bin/p %U\nStartupWMClass=C",
         "P|i|p|C"},
        {"\n# comment\r\n[Desktop Entry]\r\nType = Application\r\nName = Spaced \r\n", "Spaced|||"},
        {"[Desktop Entry]\nType=Application\nName[de]=Deutsch\nName=X\nName[fr]=F\nName[de_AT]=At", "At|||"},
        {"[Desktop Entry]\nType=Application\nName=X\nName[de@euro]=Euro\nName[de]=D", "Euro|||"},
        {"[Desktop Entry]\nType=Application\nName=a\\sb\\\\c\nExec=\"/a b/r \\\\\"x\" --y", "a b\\c||r \"x|"},
        {"[Desktop Entry]\nType=Application\nName=E\nExec=env A=1 B=2 sh -c x", "E||sh|"},
        {"[Desktop Entry]\nType=Application\nName=N\nExec=\n[Desktop Action x]\nName=Other\nExec=o", "N|||"},
        {"[Desktop Entry]\nType=Link\nName=N", ""},
        {"[Desktop Entry]\nType=Application", ""},
        {"Type=Application\nName=N", ""},
        {"[Desktop Entry\nType=Application\nName=N", ""},
        {"[Desktop Entry]\nName[]=x\nName[=y\nName]=z\nType=Application\n=\n[", ""},
        {"\xff\xfe[Desktop Entry]", ""},
        {"", ""},
    };
    for (const auto& [text, description] : files) {
        const auto entry = parseDesktopEntry(text, localeSuffixes("de_AT.UTF-8@euro"));
        EXPECT_EQ(entry ? entry->name + "|" + entry->icon + "|" + entry->program + "|" + entry->startupWmClass
                        : "",
                  description)
            << text;
    }
}

TEST(DesktopEntries, FindsTheFirstGoodFileAndSeesChanges) {
    const ScratchFolders folders;
    const auto write = [&](const char* path, const char* lines) {
        folders.write(path, QByteArray("[Desktop Entry]\nType=Application\n") + lines);
    };
    write("system-data/applications/app.desktop", "Name=System\n");
    write("system-data/applications/hidden.desktop", "Name=Shown\n");
    write("system-data/applications/broken.desktop", "Name=Whole\n");
    write("data/applications/app.desktop", "Name=Own\nNoDisplay=true\n");
    write("data/applications/hidden.desktop", "Name=Hidden\nHidden=true\n");
    folders.write("data/applications/broken.desktop", "\x01\x02");
    write("data/applications/sub/deep.desktop", "Name=Deep\nExec=two\n");
    write("data/applications/other.desktop", "Name=Other\nExec=two\n");
    write("data/applications/polyglot.desktop", "Name=English\nName[de]=Deutsch\n");
    qputenv("LC_ALL", "en_US.UTF-8");
    qputenv("LANGUAGE", "de:fr");
    auto entries = DesktopEntries::ofEnvironment();
    qunsetenv("LANGUAGE");
    qunsetenv("LC_ALL");
    EXPECT_EQ(entries.withId("polyglot")->name, "Deutsch") << "the language that the texts are in";
    EXPECT_EQ(entries.withId("app")->name, "Own");
    EXPECT_EQ(entries.withId("broken")->name, "Whole");
    EXPECT_FALSE(entries.withId("hidden"));
    EXPECT_EQ(entries.withId("sub-deep")->name, "Deep");
    EXPECT_FALSE(entries.withProgram("two")) << "two applications start it";
    EXPECT_FALSE(entries.withStartupWmClass("New"));
    write("data/applications/sub/new.desktop", "Name=New\nStartupWMClass=New\n");
    ASSERT_TRUE(entries.withStartupWmClass("New"));
    EXPECT_EQ(entries.withStartupWmClass("New")->id, "sub-new");
    QFile::remove(folders.dataHome() + "/applications/sub/new.desktop");
    EXPECT_FALSE(entries.withId("sub-new"));
}

TEST(CompoundText, IsReadAsUtf8) {
    EXPECT_EQ(fromCompoundText("plain \xfc"), "plain ü");
    EXPECT_EQ(fromCompoundText("A \x1b-L\xb1\xd5\xe2\xd0 z"), "A Бета z");
    EXPECT_EQ(fromCompoundText("\x1b%G\xe2\x82\xac\x1b%@\xe9"), "€é");
    EXPECT_EQ(fromCompoundText("\x1b$(B\x46\x7c\x4b\x5c\x1b(B!"), "日本!");
    EXPECT_EQ(fromCompoundText("a\x1b$/1\x80\x80xy\x1b(Bb\x1b"), "ab") << "a set that nobody knows";
}

} // namespace
} // namespace quorvane
