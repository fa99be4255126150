#include "platform/linux/keyboard/XkbRegistry.h"

#include <algorithm>
#include <functional>
#include <libintl.h>

#include <QFile>
#include <QXmlStreamReader>

#include "platform/linux/keyboard/XkbContext.h"

namespace quorvane {
namespace {

constexpr const char* translations = "xkeyboard-config"; // the database's own gettext domain

std::string translated(const std::string& description) {
    if (description.empty()) return {};
    bind_textdomain_codeset(translations, "UTF-8");
    return dgettext(translations, description.c_str());
}

/// What the database says about a layout, in English.
struct Entry {
    XkbLayout layout;
    XkbLayoutNames names;
};

using OnEntry = std::function<void(const Entry& entry)>;

/// Calls it for each element within the one that was begun; it has to read to that element's end.
void forEachChild(QXmlStreamReader& xml, const std::function<void(QStringView name)>& call) {
    while (xml.readNextStartElement())
        call(xml.name());
}

/// Reads a configItem; what it calls the layout or variant goes into `name`.
void readItem(QXmlStreamReader& xml, std::string& name, XkbLayoutNames& names) {
    forEachChild(xml, [&](QStringView element) {
        auto* text = element == u"name"               ? &name
                     : element == u"description"      ? &names.description
                     : element == u"shortDescription" ? &names.brief
                                                      : nullptr;
        if (text)
            *text = xml.readElementText(QXmlStreamReader::SkipChildElements).toStdString();
        else
            xml.skipCurrentElement();
    });
}

/// A variant has the letters of its layout unless it says others.
void readVariant(QXmlStreamReader& xml, const Entry& layout, const OnEntry& call) {
    Entry entry{{layout.layout.layout, {}}, {{}, layout.names.brief}};
    forEachChild(xml, [&](QStringView element) {
        if (element == u"configItem")
            readItem(xml, entry.layout.variant, entry.names);
        else
            xml.skipCurrentElement();
    });
    call(entry);
}

/// The item comes first, the variants follow.
void readLayout(QXmlStreamReader& xml, const OnEntry& call) {
    Entry entry;
    forEachChild(xml, [&](QStringView element) {
        if (element == u"configItem") {
            readItem(xml, entry.layout.layout, entry.names);
            call(entry);
        } else if (element == u"variantList") {
            forEachChild(xml, [&](QStringView) { readVariant(xml, entry, call); });
        } else {
            xml.skipCurrentElement();
        }
    });
}

void readRegistry(const QString& path, const OnEntry& call) {
    QFile file(path);
    if (!file.open(QFile::ReadOnly)) return;
    QXmlStreamReader xml(&file);
    if (!xml.readNextStartElement()) return;
    forEachChild(xml, [&](QStringView element) {
        if (element == u"layoutList")
            forEachChild(xml, [&](QStringView) { readLayout(xml, call); });
        else
            xml.skipCurrentElement();
    });
}

/// Calls it with every layout: of the user's own database first, then of the machine's and of the system's.
/// It is read an element at a time, because all of it in memory would be the most that this program needs at
/// once.
void forEachLayout(const OnEntry& call) {
    const auto context = newXkbContext();
    if (!context) return;
    for (unsigned i = 0; i < xkb_context_num_include_paths(context.get()); ++i) {
        const auto folder = QFile::decodeName(xkb_context_include_path_get(context.get(), i));
        for (const auto* name : {"/rules/evdev.xml", "/rules/evdev.extras.xml"})
            readRegistry(folder + name, call);
    }
}

} // namespace

std::map<std::string, XkbLayoutNames> namesOfLayouts(const std::vector<XkbLayout>& layouts) {
    std::map<std::string, XkbLayoutNames> names;
    forEachLayout([&](const Entry& entry) {
        if (std::ranges::find(layouts, entry.layout) == layouts.end()) return;
        names.try_emplace(entry.layout.id(),
                          XkbLayoutNames{translated(entry.names.description), entry.names.brief});
    });
    return names;
}

std::vector<XkbLayout> layoutsOfNames(const std::vector<std::string>& names) {
    std::map<std::string, XkbLayout> found;
    forEachLayout([&](const Entry& entry) {
        const auto& name = entry.names.description;
        if (std::ranges::find(names, name) != names.end()) found.try_emplace(name, entry.layout);
    });
    std::vector<XkbLayout> layouts;
    layouts.reserve(names.size());
    for (const auto& name : names)
        layouts.push_back(found.try_emplace(name, XkbLayout{name, ""}).first->second);
    return layouts;
}

} // namespace quorvane
