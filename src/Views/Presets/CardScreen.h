#pragma once

#include "Extensions/Date.h"
#include "Motion/AnimatedValue.h"
#include "Views/Shared/CardList.h"

#include <QUuid>
#include <QWidget>

#include <optional>
#include <vector>

namespace tolvar {

class ConfirmationSheet;
class EmptyState;
class FocusManager;
class GoalInputSheet;
class Sheet;

/// A tab of the window with cards in it, or with what says that there are none. Its questions rise
/// over the whole window: none while nobody sees the screen or a session runs, and they go when the
/// screen does.
class CardScreen : public QWidget, protected CardSource {
    Q_OBJECT

public:
    /// All outlive the screen, but for `window`, in which it stands.
    struct Environment {
        ControlContext context;
        TimerService& timers;
        FocusManager& focusManager;
        /// What questions rise over.
        QWidget& window;
    };
    struct Texts {
        Symbol emptySymbol;
        QString emptyTitle;
        QString emptyMessage;
        QString deleteTitle;
        /// "%1" is the record.
        QString deleteMessage;
    };

    /// Puts the keyboard on the card it was on last, where there is any.
    void takeKeyboard(Qt::FocusReason reason);
    /// Closes the row whose keys are revealed; whether there was one.
    bool closeRow();

protected:
    CardScreen(const Environment& environment, const CardList::Style& style, const Texts& texts,
               QWidget* parent);
    ~CardScreen() override;

    /// What a record is called; nothing if there is no such record.
    virtual std::optional<QString> recordName(const QUuid& id) const = 0;
    virtual void deleteRecord(const QUuid& id) = 0;
    /// The goal was given for what `askForGoal` last asked about.
    virtual void startRecord(const QString& goal) = 0;

    CardList& list() const { return *m_list; }
    /// Moves to these records; a question about one that is gone is taken back.
    void setRecords(std::vector<QUuid> ids, const Spring& spring = Instrument::Motion::listEdit);
    void askForGoal(const QString& title, Seconds duration);
    bool mayAsk() const;
    SwipeAction deletion(const QUuid& id);
    /// One that goes when the screen does.
    ConfirmationSheet* addQuestion(ConfirmationSheet* question);

    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void askToDelete(const QUuid& id);
    void showEmpty(bool isEmpty);
    void follow();

    const Environment m_environment;
    const QString m_deleteMessage;
    CardList* m_list;
    EmptyState* m_empty;
    AnimatedValue m_emptiness;
    GoalInputSheet* m_goalSheet;
    ConfirmationSheet* m_deletion;
    std::vector<Sheet*> m_sheets;
    QUuid m_toDelete;
};

} // namespace tolvar
