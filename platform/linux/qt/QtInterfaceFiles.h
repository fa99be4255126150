#pragma once

#include <memory>

#include "platform/InterfaceFiles.h"

namespace quorvane {

/// The program's windows, made of Qt widgets.
class QtInterfaceFiles : public InterfaceFiles {
public:
    QtInterfaceFiles();
    ~QtInterfaceFiles() override;

    MainInterface mainInterface() override;
    std::unique_ptr<Window> loadWindow(std::string_view nibName) override;
    bool hasWindow(std::string_view nibName) const override;

private:
    struct Windows;
    std::unique_ptr<Windows> windows_;
};

} // namespace quorvane
