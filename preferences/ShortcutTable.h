#pragma once

#include <string_view>
#include <utility>

#include "platform/UserDefaults.h"
#include "platform/Widgets.h"
#include "preferences/Cells.h"
#include "preferences/PreferencesLists.h"
#include "shortcuts/PTHotKeyCenter.h"
#include "shortcuts/SRRecorderControlWithTagid.h"

namespace quorvane {

/// The table of input sources, in which the user records a hot key for each.
class ShortcutTable {
public:
    /// `pressed` is the action of the hot keys that are recorded here.
    ShortcutTable(UserDefaults& standard, PTHotKeyCenter& hotKeyCenter, const PreferencesLists& lists,
                  TableView& table, PTHotKey::Action pressed)
        : standard_(standard)
        , hotKeyCenter_(hotKeyCenter)
        , lists_(lists)
        , table_(table)
        , pressed_(std::move(pressed))
        , refusals_(hotKeyCenter.refusalsChanged.connect([this] { table_.reloadData(); })) {}

    /// An empty cell for any other column or row.
    CellView tableViewForShortcut(std::string_view column, int row);

    /// Stores what was recorded, or removes what was cleared, and registers it at once in place of the old
    /// one.
    void shortcutRecorderDidEndRecording(const SRRecorderControlWithTagid& recorder);

private:
    const InputSourceInfo* inputAt(std::int64_t row) const;
    CellView recorderCell(const InputSourceInfo& input, int row);

    UserDefaults& standard_;
    PTHotKeyCenter& hotKeyCenter_;
    const PreferencesLists& lists_;
    TableView& table_;
    PTHotKey::Action pressed_;
    Subscription refusals_;
};

} // namespace quorvane
