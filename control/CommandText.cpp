#include "control/CommandText.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <map>
#include <vector>

#include "control/Named.h"

namespace quorvane {
namespace {

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

std::string text(const PropertyList& value) {
    const auto* string = value.string();
    return string ? *string : std::string();
}

/// How many columns of a terminal a text takes, roughly: scripts of East Asia take two a character.
std::size_t widthOf(std::string_view utf8) {
    constexpr unsigned char firstOfThreeBytes = 0xe1, continuation = 0x80, kindOfByte = 0xc0;
    std::size_t width = 0;
    for (const auto byte : utf8) {
        const auto value = static_cast<unsigned char>(byte);
        if ((value & kindOfByte) != continuation) width += value > firstOfThreeBytes ? 2 : 1;
    }
    return width;
}

std::string textOfRows(const Rows& rows, const TextStyle& style) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
            widths[i] = std::max(widths[i], widthOf(row[i]));
    }
    std::string lines;
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            lines += row[i];
            if (i + 1 == row.size()) continue;
            lines += style.isAligned ? std::string(widths[i] - widthOf(row[i]) + 2, ' ') : "\t";
        }
        lines.erase(lines.find_last_not_of(' ') + 1);
        lines += '\n';
    }
    return lines;
}

std::string named(const PropertyList& document) {
    return textOf(Named{text(document["identifier"]), text(document["name"])});
}

std::string whole(double number, const char* format) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, number);
    return text.data();
}

/// The wanted source, as the beginning of a sentence.
std::string wantedOf(const PropertyList& explanation) {
    const auto& wanted = explanation["wanted"];
    if (wanted.isNothing()) return {};
    return named(wanted) +
           (wanted["isMissing"].boolValue() ? ", which is not among the sources now, " : ", ");
}

/// Why the source is wanted, as the end of a sentence.
std::string reasonOf(const PropertyList& explanation) {
    const auto reason = text(explanation["reason"]);
    if (reason == "rule") return "by its rule";
    if (reason == "launcher's rule") return "by the launcher's rule";
    if (reason == "default source") return "the default source: it has no rule of its own";
    return "nothing applies: it has no rule, and there is no default source";
}

std::string explanationOf(const PropertyList& document) {
    const auto application = document["application"].isNothing() ? "an application without an identifier"
                                                                 : named(document["application"]);
    auto lines = application + ": " + wantedOf(document) + reasonOf(document) + "\n";
    if (document["companionDecides"].boolValue())
        lines += "The companion application runs: it is asked, and decides by place.\n";
    if (document["isPaused"].boolValue()) lines += "Switching is paused: quorvanectl resume\n";
    return lines;
}

std::string statusOf(const PropertyList& document, const TextStyle& style) {
    Rows rows;
    const auto add = [&](const char* what, std::string value) { rows.push_back({what, std::move(value)}); };
    const auto& front = document["application"];
    const auto recognition = text(document["recognisedBy"]);
    add("in front", front.isNothing()
                        ? "nobody with an identifier"
                        : named(front) + (recognition.empty() ? "" : ", known by " + recognition));
    add("wanted", wantedOf(document) + reasonOf(document));
    add("current", document["current"].isNothing() ? "unknown" : named(document["current"]));
    add("sources from", text(document["provider"]));
    const auto until = document["pausedUntil"];
    const auto* end = until.real();
    add("switching", !document["isPaused"].boolValue() ? "on"
                     : end && style.timeText           ? "paused until " + style.timeText(*end)
                                                       : "paused");
    if (document["companionDecides"].boolValue()) add("companion", "runs: it is asked, and decides by place");
    const auto trouble = text(document["settingsTrouble"]);
    add("settings", trouble.empty() ? "saved" : trouble);
    std::string refused;
    if (const auto* shortcuts = document["refusedShortcuts"].array())
        for (const auto& source : *shortcuts)
            refused.append(refused.empty() ? "another program has that of " : ", ").append(named(source));
    add("hot keys", refused.empty() ? "none refused" : refused);
    add("switches", std::to_string(document["switches"].integerValue()));
    return textOfRows(rows, style);
}

Row applicationRow(const PropertyList& each) {
    return {text(each["identifier"]), text(each["name"]), each["isRunning"].boolValue() ? "running" : ""};
}

Row sourceRow(const PropertyList& each) {
    return {text(each["identifier"]), text(each["name"]), each["isCurrent"].boolValue() ? "current" : ""};
}

Row ruleRow(const PropertyList& each) {
    return {text(each["identifier"]), text(each["name"]), text(each["source"]["identifier"]),
            text(each["source"]["name"])};
}

/// A value on one line, as far as a line goes.
std::string shortText(const PropertyList& value) {
    if (value.isNothing()) return "nothing";
    if (const auto* string = value.string()) return *string;
    if (const auto* boolean = value.boolean()) return *boolean ? "true" : "false";
    if (const auto* integer = value.integer()) return std::to_string(*integer);
    if (const auto* real = value.real()) return whole(*real, "%g");
    std::string inner;
    if (const auto* array = value.array()) {
        for (const auto& element : *array)
            inner.append(inner.empty() ? "" : ", ").append(shortText(element));
        return inner.insert(0, 1, '[').append(1, ']');
    }
    if (const auto* dictionary = value.dictionary())
        for (const auto& [key, element] : *dictionary)
            inner.append(inner.empty() ? "" : ", ").append(key).append(": ").append(shortText(element));
    return inner.insert(0, 1, '{').append(1, '}');
}

Row changeRow(const PropertyList& change) {
    const auto entry = text(change["entry"]);
    const auto& before = change["before"];
    const auto& after = change["after"];
    return {before.isNothing()  ? "+"
            : after.isNothing() ? "-"
                                : "~",
            text(change["setting"]) + (entry.empty() ? "" : " " + entry),
            before.isNothing()  ? shortText(after)
            : after.isNothing() ? shortText(before)
                                : shortText(before) + " -> " + shortText(after)};
}

std::string tableOf(const PropertyList& list, Row (*row)(const PropertyList&), const TextStyle& style) {
    Rows rows;
    if (const auto* elements = list.array()) std::ranges::transform(*elements, std::back_inserter(rows), row);
    return textOfRows(rows, style);
}

std::string failureOf(const PropertyList& document, const TextStyle& style) {
    auto lines = text(document["error"]) + "\n";
    return lines +
           tableOf(
               document["candidates"], [](const auto& each) { return Row{"  " + named(each)}; }, style);
}

std::string sourceOf(const PropertyList& document) {
    return (document["source"].isNothing() ? "none" : named(document["source"])) + "\n";
}

std::string shortcutOf(const PropertyList& document) {
    const auto keys = text(document["keys"]);
    if (keys.empty()) return "none\n";
    return keys + (document["isRefused"].boolValue()
                       ? ", which another program has: it works once that gives it up\n"
                       : "\n");
}

} // namespace

std::string textOfResult(std::string_view command, const CommandResult& result, const TextStyle& style) {
    const auto& document = result.document;
    if (result.status != CommandStatus::done) return failureOf(document, style);
    if (command == "status") return statusOf(document, style);
    if (command == "why") return explanationOf(document);
    if (command == "apps") return tableOf(document, applicationRow, style);
    if (command == "sources") return tableOf(document, sourceRow, style);
    if (command == "rules") return tableOf(document, ruleRow, style);
    if (command == "rule" || command == "default") return sourceOf(document);
    if (command == "shortcut") return shortcutOf(document);
    if (command == "import") return tableOf(document, changeRow, style);
    return {};
}

std::string textOfDecision(const PropertyList& decision, const TextStyle& style) {
    const auto time = decision["time"];
    const auto milliseconds = decision["milliseconds"];
    const auto application = text(decision["application"]), source = text(decision["source"]);
    const Row row = {style.timeText && time.real() ? style.timeText(*time.real()) : "",
                     application.empty() ? "-" : application,
                     text(decision["reason"]),
                     source.empty() ? "-" : source,
                     text(decision["outcome"]),
                     whole(milliseconds.real() ? *milliseconds.real() : 0, "%.2f ms")};
    return textOfRows({row}, style);
}

} // namespace quorvane
