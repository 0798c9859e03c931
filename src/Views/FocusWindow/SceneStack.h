#pragma once

#include "Motion/AnimatedValue.h"

#include <QPixmap>
#include <QPointer>
#include <QWidget>

namespace tolvar {

/// A place where one scene stands at a time. A scene that leaves fades quickly, and is gone before
/// the one that comes rises into its place.
class SceneStack final : public QWidget {
    Q_OBJECT

public:
    /// `driver` outlives the stack.
    explicit SceneStack(AnimationDriver& driver, QWidget* parent = nullptr);
    ~SceneStack() override;

    /// Brings `scene` on, which becomes a child of the stack. The one before is hidden at once, and
    /// may be destroyed: what is seen of it is a picture.
    void bringOn(QWidget* scene);
    QWidget* scene() const { return m_scene; }
    bool isChanging() const { return m_entering.isMoving() || m_leaving.isMoving(); }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    class Curtain;

    void changed();
    void finish();

    QPointer<QWidget> m_scene;
    /// What is drawn over the scene while it enters.
    Curtain* m_curtain;
    QPixmap m_former;
    QPixmap m_present;
    AnimatedValue m_entering; ///< 0 absent, 1 in its place
    AnimatedValue m_leaving;  ///< 1 still there, 0 gone
};

} // namespace tolvar
