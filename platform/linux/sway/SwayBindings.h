#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace quorvane {

/// A key with modifiers that sway's configuration gives something to do.
struct SwayBinding {
    std::uint16_t modifiers = 0; ///< X11's eight bits.
    std::uint8_t keycode = 0;    ///< X11's; 0: it goes by the keysym.
    std::uint32_t keysym = 0;    ///< Of a letter, the small one.

    bool operator==(const SwayBinding&) const = default;
};

/// Reads which keys a configuration binds outside of special modes. Reading on from where another text ended,
/// it knows that one's variables, as sway does with files that are included.
class SwayBindings {
public:
    /// Gives the texts of the files that a pattern of shell words means.
    using Included = std::function<std::vector<std::string>(const std::string& pattern)>;

    explicit SwayBindings(Included included) : included_(std::move(included)) {}

    void read(std::string_view configuration);

    const std::vector<SwayBinding>& all() const { return bindings_; }

private:
    using Words = std::vector<std::string>;

    void readLine(const std::string& line);
    void openBlock(Words words);
    void take(const Words& words);
    void setVariable(const Words& words);
    void setBinding(const Words& words);
    std::string withoutVariables(std::string text) const;

    Included included_;
    std::map<std::string, std::string> variables_;
    std::vector<Words> blocks_; ///< What the lines of each open block are to be read after.
    std::vector<SwayBinding> bindings_;
    int depth_ = 0; ///< Of inclusions.
};

} // namespace quorvane
