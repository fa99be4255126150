#pragma once

#include <cstdint>

#include <QJsonDocument>
#include <QString>

namespace quorvane {

/// What `swaymsg` does: asks sway, of the current SWAYSOCK.
namespace sway {

enum class Question : std::uint32_t { command = 0, tree = 4, inputs = 100 };

/// Null when there is no answer.
QJsonDocument ask(Question question, const QString& text = {});

} // namespace sway
} // namespace quorvane
