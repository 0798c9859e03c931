#pragma once

#include "Models/AppSettings.h"
#include "Motion/AnimationDriver.h"
#include "Platform/Null/MemoryPreferences.h"
#include "Support/HandFrames.h"
#include "Support/RecordingHaptics.h"
#include "Support/RecordingSound.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Theme/Feedback.h"

#include <QAccessible>
#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QWidget>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

namespace tolvar::test {

/// A control in a window of its own, moved by hand.
class ControlTest : public testing::Test {
protected:
    ControlTest() {
        preferences.registerDefaults(AppSettings::defaults());
        window.resize(400, 200);
    }

    ControlContext context() { return {driver, feedback}; }

    /// Puts a control into the window and shows both.
    template<typename Control>
    Control& shown(Control* control) {
        control->setParent(&window);
        control->resize(control->sizeHint());
        control->move(20, 20);
        window.show();
        control->show();
        return *control;
    }

    static void send(QWidget& control, QEvent::Type type, const QPointF& position) {
        const auto buttons = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, position, control.mapToGlobal(position), Qt::LeftButton, buttons,
                          Qt::NoModifier);
        QApplication::sendEvent(&control, &event);
    }
    static QPointF middle(const QWidget& control) { return QRectF(control.rect()).center(); }
    static void press(QWidget& control) {
        send(control, QEvent::MouseButtonPress, middle(control));
    }
    static void release(QWidget& control) {
        send(control, QEvent::MouseButtonRelease, middle(control));
    }
    static void key(QWidget& control, QEvent::Type type, Qt::Key key) {
        QKeyEvent event(type, key, Qt::NoModifier);
        QApplication::sendEvent(&control, &event);
    }
    /// Lets every movement come to its end.
    void settle() { frames.advance(5); }

    static QImage picture(QWidget& control) {
        return control.grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    /// The greatest difference of a colour's component between two pictures of one size.
    static int difference(const QImage& first, const QImage& second) {
        int most = 0;
        for (int y = 0; y < first.height(); ++y)
            for (int x = 0; x < first.width(); ++x) {
                const QColor left = first.pixelColor(x, y);
                const QColor right = second.pixelColor(x, y);
                most = std::max({most, std::abs(left.red() - right.red()),
                                 std::abs(left.green() - right.green()),
                                 std::abs(left.blue() - right.blue())});
            }
        return most;
    }
    static QAccessibleInterface* accessible(QWidget& control) {
        return QAccessible::queryAccessibleInterface(&control);
    }

    Journal journal;
    MemoryPreferences preferences;
    RecordingHaptics haptics{journal};
    RecordingSound sound{journal};
    HandFrames frames;
    AnimationDriver driver{frames};
    Feedback feedback{preferences, haptics, sound};
    QWidget window;
};

} // namespace tolvar::test
