#include "platform/simulated/SimulatedApplication.h"

namespace quorvane {
namespace {

class SimulatedStatusItem : public StatusItem {
public:
    explicit SimulatedStatusItem(std::shared_ptr<SimulatedStatusItemState> state)
        : state_(std::move(state)) {}

    void setTemplateImage(ImageRef image) override { state_->image = std::move(image); }
    void setMenu(Menu menu) override { state_->menu = std::move(menu); }
    void setToolTip(std::function<std::string()> toolTip) override { toolTip_ = std::move(toolTip); }
    void toolTipChanged() override { state_->toolTip = toolTip_(); }
    void setHighlightMode(bool highlights) override { state_->highlights = highlights; }
    void setVisible(bool visible) override { state_->isVisible = visible; }

private:
    std::shared_ptr<SimulatedStatusItemState> state_;
    std::function<std::string()> toolTip_;
};

} // namespace

void SimulatedProcesses::launch(const std::string& path, const std::vector<std::string>& arguments) {
    auto command = path;
    for (const auto& argument : arguments)
        command += " " + argument;
    commands.push_back(std::move(command));
}

std::unique_ptr<StatusItem> SimulatedStatusBar::statusItemWithLength(double /*length*/) {
    items.push_back(std::make_shared<SimulatedStatusItemState>());
    return std::make_unique<SimulatedStatusItem>(items.back());
}

Subscription SimulatedGlobalEventMonitor::addGlobalMonitor(EventMask mask,
                                                           std::function<void(const Event&)> handler) {
    auto connection = std::make_shared<Subscription>(
        sent_.connect([mask, handler = std::move(handler)](const Event& event) {
            if (mask & eventMask(event.type)) handler(event);
        }));
    return Subscription([connection, masks = masks_, place = masks_->insert(mask)] {
        connection->end();
        masks->erase(place);
    });
}

} // namespace quorvane
