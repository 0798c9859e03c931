#pragma once

#include "Models/FocusSession.h"
#include "Views/History/DayWatch.h"
#include "Views/History/HistoryCardContent.h"
#include "Views/History/PullToClear.h"
#include "Views/Presets/BlockedSummary.h"
#include "Views/Presets/CardScreen.h"

#include <QHash>

namespace tolvar {

class ApplicationIcons;
class PullIndicator;

/// Every session that ended, newest first: to be started again, saved as a preset, or deleted.
/// Pulled down far enough, and from its context menu, it asks whether to clear them all.
class HistoryView final : public CardScreen {
    Q_OBJECT

public:
    struct Look {
        /// Above the list, in points.
        int topInset = 0;
    };

    /// `icons` outlives the view.
    HistoryView(const Environment& environment, ApplicationIcons& icons, const Look& look,
                QWidget* parent = nullptr);
    ~HistoryView() override;

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QWidget* makeCard() override;
    void fillCard(QWidget& card, const QUuid& id) override;
    std::vector<SwipeAction> actions(const QUuid& id) override;
    QString cardName(const QUuid& id) const override;
    std::optional<QString> recordName(const QUuid& id) const override;
    void deleteRecord(const QUuid& id) override;
    void startRecord(const QString& goal) override;

    const FocusSession* find(const QUuid& id) const;
    HistoryCardContent contentOf(const FocusSession& session) const;
    SwipeAction restart(const QUuid& id);
    SwipeAction save(const FocusSession& session);
    void select(const QUuid& id);
    void askToClear();
    void showSessions();

    FocusManager& m_focusManager;
    ApplicationIcons& m_icons;
    const Look m_look;
    mutable BlockedSummaries m_summaries;
    /// Where each session stands in the manager's history.
    QHash<QUuid, std::size_t> m_places;
    /// The one whose goal is asked for.
    std::optional<FocusSession> m_toRestart;
    /// Whether all of it goes at this moment, at the user's word.
    bool m_isClearing = false;
    DayWatch m_dayWatch;
    PullToClear m_pull;
    PullIndicator* m_pullIndicator;
    ConfirmationSheet* m_clearing;
};

} // namespace tolvar
