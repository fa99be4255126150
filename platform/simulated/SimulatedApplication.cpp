#include "platform/simulated/SimulatedApplication.h"

namespace quorvane {
namespace {

class SimulatedStatusItem : public StatusItem {
public:
    SimulatedStatusItem(Journal& journal, Menu& menu) : journal_(journal), menu_(menu) {}

    void setTemplateImage(ImageRef image) override {
        journal_.add("status item image ", image ? image->size().width : 0);
    }
    void setMenu(Menu menu) override {
        for (const auto& item : menu)
            journal_.add("status item menu ", item.title, item.isEnabled ? "" : ", disabled");
        menu_ = std::move(menu);
    }
    void setToolTip(std::function<std::string()> toolTip) override { toolTip_ = std::move(toolTip); }
    void toolTipChanged() override { journal_.add("status item says ", toolTip_()); }
    void setHighlightMode(bool highlights) override { journal_.add("status item highlights ", highlights); }
    void setVisible(bool visible) override { journal_.add("status item ", visible ? "shown" : "hidden"); }

private:
    Journal& journal_;
    Menu& menu_;
    std::function<std::string()> toolTip_;
};

} // namespace

void SimulatedAlerts::write(const char* kind, const Alert& alert) {
    journal_.add(kind, " ", alert.messageText);
    if (!alert.informativeText.empty()) journal_.add(alert.informativeText);
    for (const auto& button : alert.buttons)
        journal_.add("button ", button);
    if (!alert.suppressionButtonTitle.empty()) journal_.add("box ", alert.suppressionButtonTitle);
}

void SimulatedProcesses::launch(const std::string& path, const std::vector<std::string>& arguments) {
    auto command = path;
    for (const auto& argument : arguments)
        command += " " + argument;
    journal_.add("launch ", command);
}

std::unique_ptr<StatusItem> SimulatedStatusBar::statusItemWithLength(double length) {
    journal_.add("status item of length ", length);
    return std::make_unique<SimulatedStatusItem>(journal_, menu);
}

Subscription SimulatedGlobalEventMonitor::addGlobalMonitor(EventMask mask,
                                                           std::function<void(const Event&)> handler) {
    journal_.add("monitor ", mask);
    auto connection = std::make_shared<Subscription>(
        sent_->connect([mask, handler = std::move(handler)](const Event& event) {
            if (mask & eventMask(event.type)) handler(event);
        }));
    return Subscription([connection, mask, sent = std::weak_ptr(sent_), &journal = journal_] {
        connection->end();
        if (!sent.expired()) journal.add("end monitor ", mask);
    });
}

} // namespace quorvane
