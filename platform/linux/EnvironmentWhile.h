#pragma once

#include <optional>

#include <QByteArray>

namespace quorvane {

/// Lets this process see a variable of the environment otherwise as long as this object lives. What is
/// started later gets it as it was.
class EnvironmentWhile {
public:
    /// Without a value the variable is not set.
    EnvironmentWhile(const char* variable, const std::optional<QByteArray>& value) : variable_(variable) {
        if (qEnvironmentVariableIsSet(variable)) before_ = qgetenv(variable);
        set(value);
    }
    ~EnvironmentWhile() { set(before_); }
    EnvironmentWhile(const EnvironmentWhile&) = delete;
    EnvironmentWhile& operator=(const EnvironmentWhile&) = delete;

private:
    void set(const std::optional<QByteArray>& value) {
        if (value)
            qputenv(variable_, *value);
        else
            qunsetenv(variable_);
    }

    const char* variable_;
    std::optional<QByteArray> before_;
};

} // namespace quorvane
