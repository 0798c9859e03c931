#pragma once

#include <QAccessibleWidget>

namespace tolvar {

class SwipeActionsContainer;

/// What assistive technology knows of a SwipeActionsContainer: an item of a list whose actions are
/// those of the row, whether or not their keys are revealed.
class SwipeActionsFace final : public QAccessibleWidget {
public:
    /// To be called before the first row is shown.
    static void install();

    explicit SwipeActionsFace(SwipeActionsContainer* row);

    QAccessibleInterface* parent() const override;
    int childCount() const override;
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QStringList actionNames() const override;
    void doAction(const QString& name) override;

private:
    SwipeActionsContainer& row() const;
    std::vector<QWidget*> parts() const;
};

} // namespace tolvar
