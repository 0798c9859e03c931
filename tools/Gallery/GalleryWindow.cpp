#include "Gallery/GalleryWindow.h"

#include "Gallery/Pages.h"
#include "Views/Paint/Paint.h"
#include "Views/Shared/FocusRing.h"
#include "Views/Shared/InstrumentSwitch.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/Labels.h"
#include "Views/Theme/Instrument.h"

#include <QHBoxLayout>
#include <QStackedWidget>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

namespace {

constexpr double slowMotion = 10;

} // namespace

GalleryWindow::GalleryWindow(Studio& studio)
    : m_studio(studio) {
    setWindowTitle(u"Tolvar: gallery"_s);
    auto* sheets = new QStackedWidget;
    for (const Page& page : pages())
        sheets->addWidget(page.make(studio.context()));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(makeHeader(*sheets));
    column->addWidget(new PanelRule);
    column->addWidget(sheets);
    new FocusRing(*this);
}

QWidget* GalleryWindow::makeHeader(QStackedWidget& sheets) {
    auto* header = new QWidget;
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(24, 14, 24, 14);
    row->setSpacing(8);
    std::vector<KeyButton*> tabs;
    for (const Page& page : pages()) {
        tabs.push_back(new KeyButton(m_studio.context(), KeyStyle::standard(), page.name));
        row->addWidget(tabs.back());
    }
    const auto select = [tabs, &sheets](int index) {
        sheets.setCurrentIndex(index);
        for (std::size_t i = 0; i < tabs.size(); ++i)
            tabs[i]->setLatched(static_cast<int>(i) == index);
    };
    for (std::size_t i = 0; i < tabs.size(); ++i)
        connect(tabs[i], &KeyButton::clicked, this, [select, i] { select(static_cast<int>(i)); });
    select(0);
    row->addStretch();
    const auto addSwitch = [&](const QString& name, const std::function<void(bool)>& change) {
        auto* control = new InstrumentSwitch(m_studio.context(), name);
        connect(control, &InstrumentSwitch::toggled, this, change);
        row->addWidget(new SectionLabel(name));
        row->addWidget(control);
    };
    auto& driver = m_studio.driver();
    addSwitch(u"Slow"_s, [&driver](bool isOn) {
        auto settings = driver.settings();
        settings.slowFactor = isOn ? slowMotion : 1;
        driver.setSettings(settings);
    });
    addSwitch(u"Reduced"_s, [&driver](bool isOn) {
        auto settings = driver.settings();
        settings.isReduced = isOn;
        driver.setSettings(settings);
    });
    return header;
}

void GalleryWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), Instrument::Palette::panel);
}

} // namespace tolvar::gallery
