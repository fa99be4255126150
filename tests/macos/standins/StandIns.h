#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gmock/gmock.h>

#include "platform/PropertyList.h"
#include "platform/macos/Apple.h"

namespace quorvane::standins {

/// What a user and other programs can change. Dictionaries have the names of Apple's keys.
struct System {
    using Dictionary = PropertyList::Dictionary;

    std::vector<Dictionary> sources;          ///< Whose "TISPropertyIconRef" says whether they have an icon.
    std::vector<Dictionary> installedSources; ///< Only installed: the user has not enabled them.
    std::string selectedID;
    std::map<std::string, std::string> layoutsOfInputMethods; ///< By id; others are layouts themselves.
    int selectionsTold = 0;
    bool emptyListsAreNull = false;
    Dictionary asciiCapableLayout; ///< None when it is empty.
    std::map<UInt16, std::u16string> typedByKeys;

    std::vector<Dictionary> windows; ///< Front to back.
    bool hasWindowServer = true;

    std::map<std::string, bool> combinationsOfOthers; ///< And whether they have it exclusively.
    int pressesOfOthers = 0;                          ///< So often one of these was told to them.
    bool installsHandlers = true;

    void select(const std::string& id);
    static std::string combination(UInt32 keyCode, UInt32 modifiers);
    OSStatus press(UInt32 keyCode, UInt32 modifiers);
};

System& system();

/// A fresh system. Tells all faults in the use of the old one, and what is owned still.
std::vector<std::string> restartSystem();

/// A fresh system, which must have been used without a fault when it ends.
struct FreshSystem {
    FreshSystem() { restartSystem(); }
    ~FreshSystem() { EXPECT_THAT(restartSystem(), testing::IsEmpty()); }
};

extern const IconRef icon; ///< Of all input sources that have one.

enum Type : CFTypeID { any, string, boolean, number, data, url, array, dictionary, source, hotKey, handler };

/// Anything that is owned. It is remembered when it is gone, so that later uses are found.
struct Object {
    CFTypeID type = any;
    std::string text{}; ///< In UTF-8, as far as it can be converted to that; of data: the bytes.
    CFIndex length = 0; ///< Of a string: in UTF-16.
    double value = 0;
    std::vector<const void*> parts{}; ///< Elements, or keys and values by turns.
    bool ownsParts = true;            ///< False for plain numbers in the place of objects.
    EventHotKeyID id{};
    bool isExclusive = false;
    int references = 1;      ///< 0: gone.
    int referencesAtEnd = 0; ///< Of the system. More for what lives for ever.
};

const void* addObject(Object object);

/// As the reference that it becomes.
template <class Reference = CFTypeRef>
Reference add(Object object) {
    return static_cast<Reference>(const_cast<void*>(addObject(std::move(object))));
}

/// What the system does, too, about a call that belongs to the main queue: ends the program.
void assertMainQueue(std::string_view caller);

CFTypeRef addString(std::string_view utf8);
CFTypeRef addValue(const PropertyList& value);
CFStringRef constant(std::string_view ascii); ///< Lives for ever.

/// The object behind a reference. It is a fault when that is gone, none, or of another type; then an empty
/// object takes its place.
Object& use(const void* reference, std::string_view caller, CFTypeID type = any);

/// One that is not gone; null when there is none.
Object* find(CFTypeID type, std::string_view text);

} // namespace quorvane::standins
