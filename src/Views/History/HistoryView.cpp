#include "Views/History/HistoryView.h"

#include "Models/FocusManager.h"
#include "Views/History/HistoryCard.h"
#include "Views/History/PullIndicator.h"
#include "Views/Presets/CardLook.h"
#include "Views/Shared/Sheet.h"
#include "Views/Theme/Feedback.h"
#include "Views/Theme/Instrument.h"

#include <QScopedValueRollback>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

CardList::Style listStyle(const HistoryView::Look& look) {
    CardList::Style style{.cardHeight = HistoryCard::fixedHeight,
                          .swipe = {.keySize = 68, .rowRadius = cardLook.radius}};
    style.margins.setTop(look.topInset);
    return style;
}

CardScreen::Texts texts() {
    return {.emptySymbol = Symbol::clock,
            .emptyTitle = u"No sessions yet"_s,
            .emptyMessage = u"Start your first focus session to see your history here."_s,
            .deleteTitle = u"Delete Session?"_s,
            .deleteMessage = u"This will permanently delete “%1” from your history."_s};
}

ConfirmationSheet::Texts clearingTexts() {
    return {.title = u"Clear All History?"_s,
            .message = u"This will permanently delete all your session history."_s,
            .cancel = u"Cancel"_s,
            .confirm = u"Clear All"_s};
}

} // namespace

HistoryView::HistoryView(const Environment& environment, ApplicationIcons& icons, const Look& look,
                         QWidget* parent)
    : CardScreen(environment, listStyle(look), texts(), parent)
    , m_focusManager(environment.focusManager)
    , m_icons(icons)
    , m_look(look)
    , m_dayWatch(environment.focusManager.clock(), environment.timers, [this] { list().refresh(); })
    , m_pull({.onArmed =
                  [context = environment.context] {
                      context.feedback.play(Feedback::Event::pullArmed);
                  },
              .onRelease = [this] { askToClear(); }})
    , m_pullIndicator(new PullIndicator(m_pull, this))
    , m_clearing(addQuestion(
          new ConfirmationSheet(environment.context, clearingTexts(), environment.window))) {
    list().setAccessibleName(u"History"_s);
    connect(&list(), &CardList::pulled, this, [this](double points, CardList::Hand hand) {
        m_pull.setOverscroll(points, hand == CardList::Hand::holds ? PullToClear::Phase::interacting
                                                                   : PullToClear::Phase::other);
        m_pullIndicator->follow(m_look.topInset);
    });
    connect(&list(), &CardList::pullReleased, this,
            [this](double points) { m_pull.release(points); });
    connect(m_clearing, &ConfirmationSheet::confirmed, this, [this] {
        const QScopedValueRollback clearing(m_isClearing, true);
        m_focusManager.clearHistory();
    });
    connect(&m_focusManager, &FocusManager::sessionHistoryChanged, this,
            &HistoryView::showSessions);
    connect(&m_focusManager, &FocusManager::savedPresetsChanged, &list(), &CardList::refresh);
    showSessions();
}

HistoryView::~HistoryView() = default;

void HistoryView::showSessions() {
    const auto& sessions = m_focusManager.sessionHistory();
    std::vector<QUuid> ids;
    ids.reserve(sessions.size());
    m_places.clear();
    m_places.reserve(static_cast<qsizetype>(sessions.size()));
    for (std::size_t place = sessions.size(); place-- > 0;) {
        const QUuid& id = sessions[place].id;
        if (m_places.contains(id))
            continue;
        m_places.insert(id, place);
        ids.push_back(id);
    }
    const bool isEmpty = ids.empty();
    m_pull.setEnabled(!isEmpty);
    m_pullIndicator->follow(m_look.topInset);
    list().setPullable(!isEmpty);
    list().setCommonActions(isEmpty
                                ? std::vector<SwipeAction>{}
                                : std::vector<SwipeAction>{{.title = u"Clear All History…"_s,
                                                            .symbol = Symbol::trash,
                                                            .tint = Palette::stop,
                                                            .isDestructive = true,
                                                            .action = [this] { askToClear(); }}});
    if (isEmpty)
        m_clearing->sink();
    setRecords(std::move(ids),
               m_isClearing ? Instrument::Motion::listClear : Instrument::Motion::listEdit);
}

/// The place may be that of another session for as long as `showSessions` is still to come.
const FocusSession* HistoryView::find(const QUuid& id) const {
    const auto& sessions = m_focusManager.sessionHistory();
    const auto place = m_places.constFind(id);
    if (place == m_places.constEnd() || *place >= sessions.size() || sessions[*place].id != id)
        return nullptr;
    return &sessions[*place];
}

HistoryCardContent HistoryView::contentOf(const FocusSession& session) const {
    return HistoryCardContent::of(session, m_summaries, m_focusManager.clock().now());
}

QWidget* HistoryView::makeCard() {
    return new HistoryCard(m_icons);
}

void HistoryView::fillCard(QWidget& card, const QUuid& id) {
    if (const FocusSession* session = find(id))
        static_cast<HistoryCard&>(card).setContent(contentOf(*session));
}

std::vector<SwipeAction> HistoryView::actions(const QUuid& id) {
    const FocusSession* session = find(id);
    if (!session)
        return {};
    return {restart(id), save(*session), deletion(id)};
}

SwipeAction HistoryView::restart(const QUuid& id) {
    return {.title = u"Start"_s,
            .symbol = Symbol::play,
            .tint = Palette::label,
            .action = [this, id] { select(id); }};
}

SwipeAction HistoryView::save(const FocusSession& session) {
    const bool isSaved = m_focusManager.isSessionSaved(session);
    return {.title = isSaved ? u"Saved"_s : u"Save"_s,
            .symbol = Symbol::bookmark,
            .tint = Palette::label,
            .isEnabled = !isSaved,
            .action = [this, id = session.id] {
                if (const FocusSession* kept = find(id))
                    m_focusManager.savePreset(*kept);
            }};
}

QString HistoryView::cardName(const QUuid& id) const {
    const FocusSession* session = find(id);
    if (!session)
        return {};
    const HistoryCardContent content = contentOf(*session);
    return u"%1. %2"_s.arg(content.title(), content.spokenText());
}

std::optional<QString> HistoryView::recordName(const QUuid& id) const {
    const FocusSession* session = find(id);
    return session ? std::optional(contentOf(*session).title()) : std::nullopt;
}

/// A copy: the session may be deleted while its new goal is being written, and starts all the same.
void HistoryView::select(const QUuid& id) {
    const FocusSession* session = find(id);
    if (!session)
        return;
    m_toRestart = *session;
    askForGoal(u"Focus again"_s, session->duration);
}

void HistoryView::startRecord(const QString& goal) {
    m_focusManager.startSession(m_toRestart->restarted(goal));
}

void HistoryView::deleteRecord(const QUuid& id) {
    if (const FocusSession* session = find(id))
        m_focusManager.deleteSession(*session);
}

void HistoryView::askToClear() {
    if (mayAsk() && !m_focusManager.sessionHistory().empty())
        m_clearing->rise();
}

void HistoryView::showEvent(QShowEvent* event) {
    CardScreen::showEvent(event);
    m_dayWatch.start();
}

void HistoryView::hideEvent(QHideEvent* event) {
    CardScreen::hideEvent(event);
    m_dayWatch.stop();
}

} // namespace tolvar
