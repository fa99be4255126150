#include "control/KnownNames.h"

#include <algorithm>
#include <string>

namespace quorvane {
namespace {

std::vector<Named> joined(std::vector<Named> known, const std::vector<Named>& more) {
    for (const auto& each : more)
        if (std::ranges::find(known, each.id, &Named::id) == known.end()) known.push_back(each);
    return known;
}

KnownNames::Found choose(std::string_view what, std::string_view text, const std::vector<Named>& known) {
    const auto meant = meantBy(text, known);
    if (meant.size() == 1) return {meant.front(), {}};
    const auto quoted = std::string(what) + " \"" + std::string(text) + "\"";
    if (meant.empty()) return {std::nullopt, commandFailure(CommandStatus::misused, "unknown " + quoted)};
    PropertyList::Array candidates;
    for (const auto& each : meant)
        candidates.emplace_back(PropertyList::Dictionary{{"identifier", each.id}, {"name", each.name}});
    auto failure = commandFailure(CommandStatus::misused, quoted + " may mean several");
    failure.document = failure.document.with("candidates", std::move(candidates));
    return {std::nullopt, std::move(failure)};
}

bool isUnknown(const KnownNames::Found& found) {
    return !found.one && found.failure.document["candidates"].isNothing();
}

} // namespace

KnownNames::Found KnownNames::application(std::string_view text, const std::vector<Named>& moreOfThem) const {
    auto found = choose("application", text, joined(applications(), moreOfThem));
    if (isUnknown(found) && isProgram(text)) return {Named{std::string(text), std::string(text)}, {}};
    return found;
}

KnownNames::Found KnownNames::source(std::string_view text, const std::vector<std::string>& settings) const {
    auto found = choose("input source", text, sources());
    if (!isUnknown(found)) return found;
    const bool isSet = std::ranges::find(settings, text) != settings.end();
    if (isSet || isSourceID(text)) return {Named{std::string(text), std::string(text)}, {}};
    return found;
}

} // namespace quorvane
