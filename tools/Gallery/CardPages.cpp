#include "Gallery/CardPages.h"

#include "Gallery/SampleApplications.h"
#include "Gallery/SampleRecords.h"
#include "Platform/Null/NullIconThemeSettings.h"
#include "Platform/Null/NullWorkspace.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/History/HistoryCard.h"
#include "Views/History/PullIndicator.h"
#include "Views/History/PullToClear.h"
#include "Views/Presets/BlockedSummary.h"
#include "Views/Presets/GoalInputSheet.h"
#include "Views/Presets/PresetCard.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Theme/Instrument.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize windowSize{400, 578};
constexpr int margin = 20;
constexpr int spacing = 8;
const QLocale english(QLocale::English);

class Panel : public QWidget {
protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Instrument::Palette::panel);
    }
};

/// A column of cards.
class CardsPage final : public Panel {
public:
    CardsPage()
        : m_installed(SampleApplications::few())
        , m_icons({m_installed, m_workspace, m_theme})
        , m_column(new QVBoxLayout(this)) {
        m_column->setContentsMargins(margin, margin, margin, margin);
        m_column->setSpacing(spacing);
    }

    void add(const std::vector<FocusSession>& sessions) {
        for (const FocusSession& session : sessions) {
            auto* card = new HistoryCard(m_icons);
            card->setContent(HistoryCardContent::of(session, m_summaries, sampleNow(), english));
            add(card);
        }
    }
    void add(const ControlContext& context, const std::vector<FocusPreset>& presets) {
        for (const FocusPreset& preset : presets) {
            auto* card = new PresetCard(context, m_icons);
            card->setContent(PresetCardContent::of(preset, m_summaries, {}), preset.id);
            add(card);
        }
    }

private:
    void add(QWidget* card) {
        card->setFixedSize(card->sizeHint());
        m_column->addWidget(card);
    }

    SampleApplications m_installed;
    NullWorkspace m_workspace;
    NullIconThemeSettings m_theme;
    ApplicationIcons m_icons;
    BlockedSummaries m_summaries;
    QVBoxLayout* m_column;
};

QWidget* cardsPage(const ControlContext& context, Qt::LayoutDirection direction) {
    auto* cards = new CardsPage;
    cards->setLayoutDirection(direction);
    cards->add(oddSessions());
    cards->add(context, samplePresets());
    return cards;
}

/// What shows above the list at some distances.
class PullPage final : public Panel {
public:
    PullPage() {
        setFixedSize(windowSize.width(), static_cast<int>(std::size(distances)) * height);
        int top = 0;
        for (const double distance : distances) {
            auto* place = new QWidget(this);
            place->setGeometry(0, top, width(), height);
            auto& pull = *m_pulls.emplace_back(std::make_unique<PullToClear>(
                PullToClear::Actions{.onArmed = [] {}, .onRelease = [] {}}));
            pull.setOverscroll(distance, PullToClear::Phase::interacting);
            (new PullIndicator(pull, place))->follow(inset);
            top += height;
        }
    }

private:
    static constexpr double distances[] = {4, 9, 17.5, 18, 30};
    static constexpr int height = 60;
    static constexpr int inset = 22;
    std::vector<std::unique_ptr<PullToClear>> m_pulls;
};

class GoalPage final : public Panel {
public:
    GoalPage(const ControlContext& context, const QString& title, const QString& goal) {
        setFixedSize(windowSize);
        auto* sheet = new GoalInputSheet(context, *this);
        sheet->ask(title, samplePresets().front().duration);
        sheet->findChild<InstrumentField*>()->setText(goal);
    }
};

QWidget* goalSheetPage(const ControlContext& context) {
    auto* page = new QWidget;
    auto* row = new QHBoxLayout(page);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    row->addWidget(new GoalPage(context, u"Deep work"_s, {}));
    row->addWidget(new GoalPage(context, u"Everything that is not the second chapter"_s,
                                u"Write the second chapter"_s));
    return page;
}

} // namespace

std::vector<Page> cardPages() {
    const auto cards = [](Qt::LayoutDirection direction) {
        return [direction](const ControlContext& context) { return cardsPage(context, direction); };
    };
    return {{u"cards"_s, cards(Qt::LeftToRight)},
            {u"cardsMirrored"_s, cards(Qt::RightToLeft)},
            {u"pull"_s, [](const ControlContext&) -> QWidget* { return new PullPage; }},
            {u"goalSheet"_s, goalSheetPage}};
}

} // namespace tolvar::gallery
