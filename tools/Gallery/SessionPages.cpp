#include "Gallery/SessionPages.h"

#include "Gallery/StillDesk.h"
#include "Views/ActiveSession/ActiveSessionView.h"
#include "Views/Theme/Instrument.h"

#include <QHBoxLayout>
#include <QPainter>

#include <initializer_list>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

namespace {

constexpr Seconds minute = 60;
constexpr Seconds hour = 3600;

/// The screen of a session that is brought to a moment of its own.
class Stage final : public QWidget {
public:
    Stage(const ControlContext& context, const SessionMoment& moment)
        : m_desk(moment)
        , m_view(context, m_desk.manager, this) {
        setFixedSize(m_view.sizeHint());
        m_view.resize(size());
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Instrument::Palette::panel);
    }

private:
    StillDesk m_desk;
    ActiveSessionView m_view;
};

QWidget* pageOf(const ControlContext& context, std::initializer_list<SessionMoment> moments) {
    auto* page = new QWidget;
    auto* row = new QHBoxLayout(page);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (const SessionMoment& moment : moments)
        row->addWidget(new Stage(context, moment));
    return page;
}

} // namespace

QWidget* sessionPage(const ControlContext& context) {
    return pageOf(
        context,
        {{}, {.elapsed = 12 * minute + 36, .pausesTaken = 1}, {.elapsed = 24 * minute + 53}});
}

QWidget* pausePage(const ControlContext& context) {
    return pageOf(context, {{.elapsed = 9 * minute, .pausedFor = 17},
                            {.elapsed = 21 * minute + 4, .pausesTaken = 2},
                            {.goal = u"Read"_s, .duration = 2 * hour, .elapsed = 1}});
}

QWidget* goalsPage(const ControlContext& context) {
    return pageOf(
        context,
        {{.goal = u"Write the second chapter, then read it aloud from the first line to the last "
                  "and cut a third of it, whatever it costs, before anyone else gets to see it"_s,
          .duration = 90 * minute,
          .elapsed = 31 * minute},
         {.goal = u"Rindfleischetikettierungsüberwachungsaufgabenübertragungsgesetz"_s,
          .elapsed = 2},
         {.goal = u"כתיבת הפרק השני 😀 ואז לקרוא אותו בקול"_s, .elapsed = 17 * minute + 30}});
}

} // namespace tolvar::gallery
