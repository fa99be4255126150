#pragma once

#include <functional>
#include <memory>

#include "platform/Subscription.h"

namespace quorvane {

/// Puts off the reload of a table while the user is in the midst of using one of its cells, from under whom
/// it would take the widget away.
class DeferredReload {
public:
    struct Table {
        std::function<void()> reload;
        std::function<bool()> isBeingEdited;                  ///< Whether a text of it has the keyboard.
        std::function<void(std::function<void()>)> callLater; ///< From the run loop, soon.
    };

    explicit DeferredReload(Table table);

    /// Reloads the table now, or else once after the last use has ended.
    void request();

    /// A use of a cell that lasts as long as what is returned.
    Subscription use();

    /// The text that had the keyboard may have lost it.
    void editingEnded();

private:
    struct State {
        Table table;
        int uses = 0;
        bool isDue = false;
    };

    static void reloadIfDue(State& state);
    static void reloadLater(const std::shared_ptr<State>& state);

    std::shared_ptr<State> state_;
};

} // namespace quorvane
