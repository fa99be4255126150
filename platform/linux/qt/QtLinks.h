#pragma once

#include <QDesktopServices>
#include <QUrl>

#include "platform/Links.h"

namespace quorvane {

/// Addresses are opened by the program that the user's desktop has for them.
class QtLinks : public Links {
public:
    void openURL(std::string_view url) override {
        QDesktopServices::openUrl(QUrl(QString::fromUtf8(url.data(), qsizetype(url.size()))));
    }
};

} // namespace quorvane
