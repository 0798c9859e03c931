#include "Views/FocusWindow/SceneStack.h"

#include "Views/Shared/ControlTest.h"

#include <QPainter>

namespace tolvar::test {
namespace {

/// A scene of one colour.
class Scene final : public QWidget {
public:
    explicit Scene(const QColor& color)
        : m_color(color) {}

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), m_color); }

private:
    QColor m_color;
};

class SceneStackTest : public ControlTest {
protected:
    SceneStackTest() {
        stack.resize(100, 80);
        stack.bringOn(red);
    }
    QColor middleColor() { return picture(stack).pixelColor(50, 40); }

    SceneStack& stack = shown(new SceneStack(driver));
    Scene* red = new Scene(Qt::red);
    Scene* blue = new Scene(Qt::blue);
};

TEST_F(SceneStackTest, HasItsFirstSceneAtOnce) {
    EXPECT_FALSE(stack.isChanging());
    EXPECT_EQ(middleColor(), QColor(Qt::red));
    delete blue;
}

TEST_F(SceneStackTest, HasTheOldSceneGoneBeforeTheNewOneComes) {
    stack.bringOn(blue);
    frames.advance(0.06);
    EXPECT_GT(middleColor().red(), 30);
    EXPECT_LT(middleColor().blue(), 30);
    frames.advance(0.06);
    EXPECT_LT(middleColor().red(), 30);
    EXPECT_LT(middleColor().blue(), 30);
    frames.advance(0.2);
    EXPECT_GT(middleColor().blue(), 100);
}

TEST_F(SceneStackTest, BringsTheNewSceneUpFromBelowItsPlace) {
    stack.bringOn(blue);
    frames.advance(0.2);
    const QImage rising = picture(stack);
    EXPECT_LT(rising.pixelColor(50, 0).blue(), 30);
    settle();
    EXPECT_EQ(picture(stack).pixelColor(50, 0), QColor(Qt::blue));
}

TEST_F(SceneStackTest, AsksForNoFramesOnceTheSceneIsThere) {
    stack.bringOn(blue);
    EXPECT_TRUE(driver.isAwake());
    settle();
    EXPECT_FALSE(driver.isAwake());
    EXPECT_FALSE(stack.isChanging());
    EXPECT_TRUE(blue->isVisible());
    EXPECT_FALSE(red->isVisible());
}

TEST_F(SceneStackTest, LetsTheFormerSceneBeDestroyedAtOnce) {
    stack.bringOn(blue);
    delete red;
    frames.advance(0.03);
    EXPECT_GT(middleColor().red(), 100) << "what is seen is a picture";
    settle();
    EXPECT_EQ(middleColor(), QColor(Qt::blue));
}

TEST_F(SceneStackTest, ChangesAtOnceWhereNobodySeesIt) {
    window.hide();
    stack.bringOn(blue);
    EXPECT_FALSE(stack.isChanging());
    EXPECT_FALSE(driver.isAwake());
}

TEST_F(SceneStackTest, ChangesAtOnceUnderReducedMotion) {
    driver.setSettings({.isReduced = true});
    stack.bringOn(blue);
    EXPECT_EQ(middleColor(), QColor(Qt::blue));
    EXPECT_FALSE(driver.isAwake());
}

} // namespace
} // namespace tolvar::test
