#include "Views/Shared/CardListFace.h"

#include "Views/Shared/CardList.h"

#include <QAccessibleWidget>
#include <QPointer>

#include <map>

namespace tolvar {

namespace {

/// A row that had no widgets when it was asked for. It may be asked when it has, or when it or the
/// list has gone.
class FarRowFace final : public QAccessibleInterface, public QAccessibleActionInterface {
public:
    FarRowFace(CardList& list, const QUuid& id)
        : m_list(&list)
        , m_id(id) {}

    int row() const { return m_list ? m_list->rowOf(m_id) : -1; }

    bool isValid() const override { return row() >= 0; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent() ? parent()->window() : nullptr; }
    QAccessibleInterface* parent() const override {
        return m_list ? QAccessible::queryAccessibleInterface(m_list) : nullptr;
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    QString text(QAccessible::Text kind) const override {
        return isValid() && kind == QAccessible::Name ? m_list->rowName(row()) : QString();
    }
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override {
        if (!isValid())
            return {};
        const QRect place = m_list->rowRect(row());
        return {m_list->viewport()->mapToGlobal(place.topLeft()), place.size()};
    }
    QAccessible::State state() const override;

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override;
    void doAction(const QString& name) override;
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    QPointer<CardList> m_list;
    const QUuid m_id;
};

QAccessible::State FarRowFace::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    if (state.invalid)
        return state;
    state.focusable = true;
    state.invisible = !m_list->isVisible();
    state.offscreen = !m_list->rowRect(row()).intersects(m_list->viewport()->rect());
    return state;
}

QStringList FarRowFace::actionNames() const {
    if (!isValid())
        return {};
    QStringList names;
    for (const SwipeAction& action : m_list->actionsOf(row()))
        if (action.isEnabled)
            names.append(action.title);
    return names << showMenuAction() << setFocusAction();
}

void FarRowFace::doAction(const QString& name) {
    if (!isValid())
        return;
    auto* near = QAccessible::queryAccessibleInterface(&m_list->containerInView(row()));
    if (near && near->actionInterface())
        near->actionInterface()->doAction(name);
}

class ListFace final : public QAccessibleWidget {
public:
    explicit ListFace(CardList* list)
        : QAccessibleWidget(list, QAccessible::List) {}
    ~ListFace() override { forgetRows(); }

    void forgetRows() {
        for (const auto& [id, face] : m_farRows)
            QAccessible::deleteAccessibleInterface(face);
        m_farRows.clear();
    }
    int childCount() const override { return static_cast<int>(list().ids().size()); }
    QAccessibleInterface* child(int row) const override;
    int indexOfChild(const QAccessibleInterface* child) const override {
        if (const auto* far = dynamic_cast<const FarRowFace*>(child))
            return far->row();
        return child ? list().rowOfWidget(qobject_cast<QWidget*>(child->object())) : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return child(list().rowAt(list().viewport()->mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface* focusChild() const override {
        const QWidget* focused = list().focusWidget();
        return focused && focused->hasFocus()
                   ? QAccessible::queryAccessibleInterface(const_cast<QWidget*>(focused))
                   : nullptr;
    }

private:
    CardList& list() const { return *static_cast<CardList*>(widget()); }

    mutable std::map<QUuid, QAccessible::Id> m_farRows;
};

QAccessibleInterface* ListFace::child(int row) const {
    if (row < 0 || row >= childCount())
        return nullptr;
    if (auto* near = list().containerOf(row))
        return QAccessible::queryAccessibleInterface(near);
    const QUuid& id = list().ids()[static_cast<std::size_t>(row)];
    const auto known = m_farRows.find(id);
    if (known != m_farRows.end())
        return QAccessible::accessibleInterface(known->second);
    auto* face = new FarRowFace(list(), id);
    m_farRows.emplace(id, QAccessible::registerAccessibleInterface(face));
    return face;
}

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* list = qobject_cast<CardList*>(object);
    return list ? new ListFace(list) : nullptr;
}

} // namespace

void CardListFace::install() {
    QAccessible::installFactory(faceOf);
}

void CardListFace::rowsChanged(CardList& list) {
    if (!QAccessible::isActive())
        return;
    if (auto* face = dynamic_cast<ListFace*>(QAccessible::queryAccessibleInterface(&list)))
        face->forgetRows();
    QAccessibleEvent changed(&list, QAccessible::ObjectReorder);
    QAccessible::updateAccessibility(&changed);
}

} // namespace tolvar
