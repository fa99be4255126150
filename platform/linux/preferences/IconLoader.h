#pragma once

#include <deque>
#include <functional>
#include <map>
#include <tuple>
#include <vector>

#include <QPixmap>
#include <QString>
#include <QTimer>

namespace quorvane {

/// Loads the icons of applications without keeping the window waiting: one in each turn of the event loop,
/// when everything else is done. Nothing is left running when there is nothing to load.
class IconLoader {
public:
    struct Icon {
        QString name;              ///< Of the icon theme, or a file's absolute path.
        int width = 0, height = 0; ///< In points.
        double pixelsPerPoint = 1;

        friend bool operator<(const Icon& a, const Icon& b) {
            return std::tie(a.name, a.width, a.height, a.pixelsPerPoint) <
                   std::tie(b.name, b.width, b.height, b.pixelsPerPoint);
        }
    };

    /// `loaded` is called after each icon that was looked for, from the event loop.
    explicit IconLoader(std::function<void()> loaded);

    /// Null when it is not loaded yet, and when there is none.
    QPixmap pixmapOf(const Icon& icon) const;

    /// Has these loaded, in this order, and forgets what else was still to be loaded.
    void load(const std::vector<Icon>& icons);

    /// Frees all icons.
    void clear();

private:
    void loadNext();

    std::function<void()> loaded_;
    std::map<Icon, QPixmap> pixmaps_; ///< Also null ones, of icons there are none.
    std::deque<Icon> waiting_;
    QTimer turn_;
};

} // namespace quorvane
