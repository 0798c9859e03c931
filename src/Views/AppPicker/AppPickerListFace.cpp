#include "Views/AppPicker/AppPickerListFace.h"

#include "Views/AppPicker/AppPickerList.h"

#include <QAccessibleWidget>
#include <QPointer>

#include <map>

namespace tolvar {

namespace {

using Kind = AppPickerModel::Row::Kind;

/// One row. It may be asked when the list has gone, or has fewer rows.
class RowFace final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    RowFace(AppPickerList& list, int row)
        : m_list(&list)
        , m_row(row) {}

    int row() const { return m_row; }

    bool isValid() const override {
        return m_list && m_row < static_cast<int>(m_list->rows().size());
    }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent() ? parent()->window() : nullptr; }
    QAccessibleInterface* parent() const override {
        return m_list ? QAccessible::queryAccessibleInterface(m_list) : nullptr;
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QAccessible::Role role() const override {
        return isApp() ? QAccessible::ListItem : QAccessible::Heading;
    }
    QString text(QAccessible::Text kind) const override {
        return isValid() && kind == QAccessible::Name ? shown().text : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid())
            return {};
        const QRect place = m_list->rowRect(m_row);
        return {m_list->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::State state() const override;

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface && isApp()
                   ? static_cast<QAccessibleActionInterface*>(this)
                   : nullptr;
    }
    QStringList actionNames() const override { return {toggleAction(), setFocusAction()}; }
    void doAction(const QString& action) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    const AppPickerModel::Row& shown() const {
        return m_list->rows()[static_cast<std::size_t>(m_row)];
    }
    bool isApp() const { return isValid() && shown().kind == Kind::app; }

    QPointer<AppPickerList> m_list;
    const int m_row;
};

QAccessible::State RowFace::state() const {
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const QRect inView = m_list->rowRect(m_row) & m_list->viewport()->rect();
    state.offscreen = inView.isEmpty();
    state.invisible = !m_list->isVisible();
    if (isApp()) {
        state.checkable = true;
        state.checked = m_list->isSelected(m_row);
        state.focusable = true;
        state.focused = m_list->hasFocus() && m_list->currentRow() == m_row;
    }
    return state;
}

void RowFace::doAction(const QString& action) {
    if (!isApp())
        return;
    if (action == toggleAction()) {
        m_list->toggleRow(m_row);
    } else if (action == setFocusAction()) {
        m_list->setFocus(Qt::OtherFocusReason);
        m_list->setCurrentRow(m_row);
    }
}

class ListFace final : public QAccessibleWidget {
public:
    explicit ListFace(AppPickerList* list)
        : QAccessibleWidget(list, QAccessible::List) {}
    ~ListFace() override { forgetRows(); }

    void forgetRows() {
        for (const auto& [row, id] : m_faces)
            QAccessible::deleteAccessibleInterface(id);
        m_faces.clear();
    }
    int childCount() const override { return static_cast<int>(list().rows().size()); }
    QAccessibleInterface* child(int row) const override {
        if (row < 0 || row >= childCount())
            return nullptr;
        const auto known = m_faces.find(row);
        if (known != m_faces.end())
            return QAccessible::accessibleInterface(known->second);
        auto* face = new RowFace(list(), row);
        m_faces.emplace(row, QAccessible::registerAccessibleInterface(face));
        return face;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const auto* face = dynamic_cast<const RowFace*>(child);
        return face ? face->row() : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return child(list().rowAt(list().viewport()->mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface* focusChild() const override {
        return list().hasFocus() ? child(list().currentRow()) : nullptr;
    }
    QString text(QAccessible::Text kind) const override {
        const QString said = QAccessibleWidget::text(kind);
        return said.isEmpty() && kind == QAccessible::Description ? list().emptyText() : said;
    }

private:
    AppPickerList& list() const { return *static_cast<AppPickerList*>(widget()); }

    mutable std::map<int, QAccessible::Id> m_faces;
};

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* list = qobject_cast<AppPickerList*>(object);
    return list ? new ListFace(list) : nullptr;
}

} // namespace

void AppPickerListFace::install() {
    QAccessible::installFactory(faceOf);
}

void AppPickerListFace::rowsChanged(AppPickerList& list) {
    if (auto* face = dynamic_cast<ListFace*>(QAccessible::queryAccessibleInterface(&list)))
        face->forgetRows();
    QAccessibleEvent changed(&list, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&changed);
}

void AppPickerListFace::checkChanged(AppPickerList& list, int row) {
    QAccessible::State checked;
    checked.checked = true;
    QAccessibleStateChangeEvent changed(&list, checked);
    changed.setChild(row);
    QAccessible::updateAccessibility(&changed);
}

void AppPickerListFace::currentChanged(AppPickerList& list) {
    if (!list.hasFocus())
        return;
    QAccessibleEvent focused(&list, QAccessible::Focus);
    focused.setChild(list.currentRow());
    QAccessible::updateAccessibility(&focused);
}

} // namespace tolvar
