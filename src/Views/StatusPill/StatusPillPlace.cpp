#include "Views/StatusPill/StatusPillPlace.h"

#include "Extensions/ObserverList.h"
#include "Views/Shared/DevicePixels.h"
#include "Views/StatusPill/StatusDrawing.h"

namespace tolvar {

namespace {

class StatusPillItem final : public StatusItem {
public:
    explicit StatusPillItem(const StatusPillPlace::Environment& environment)
        : m_popups(environment.popups)
        , m_pill(environment.preferences, environment.motion, environment.ends()) {
        QObject::connect(&m_pill, &StatusPill::clicked, &m_pill,
                         [this] { m_observers.call(&Observer::clicked, clickedPlace()); });
        QObject::connect(&m_pill, &StatusPill::moved, &m_pill,
                         [this] { m_observers.call(&Observer::moved); });
        QObject::connect(&m_pill, &StatusPill::menuWanted, &m_pill, [this] { showMenu(); });
    }

    /// The pill is seen once it has something to show.
    void show(const StatusItemContent& content) override {
        m_menu = content.menu;
        m_pill.setContent(content);
        if (!m_pill.isVisible())
            m_pill.QWidget::show();
    }
    int iconOnlyLength() const override { return StatusPill::thickness; }
    double iconWidth() const override { return StatusDrawing::iconWidth(StatusPill::thickness); }
    double labelWidth(const QString& label) const override {
        return StatusDrawing::labelWidth(label, StatusPill::thickness);
    }
    std::optional<QRect> anchor() const override {
        return DevicePixels::fromPoints(m_pill.castle());
    }
    Subscription observe(Observer observer) override {
        return m_observers.add(std::move(observer));
    }

private:
    std::optional<QPoint> clickedPlace() const { return anchor()->center(); }
    void showMenu() {
        m_popups.showMenu(m_menu, DevicePixels::fromPoints(m_pill.geometry()),
                          [observers = m_observers](StatusCommand command) {
                              observers.call(&Observer::chosen, command);
                          });
    }

    StatusItemPopups& m_popups;
    std::vector<StatusMenuEntry> m_menu;
    StatusPill m_pill;
    ObserverList<Observer> m_observers;
};

} // namespace

std::unique_ptr<StatusItem> StatusPillPlace::makeItem() {
    return std::make_unique<StatusPillItem>(m_environment);
}

} // namespace tolvar
