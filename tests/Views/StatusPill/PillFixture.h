#pragma once

#include "Platform/Null/MemoryPreferences.h"
#include "Support/HandFrames.h"
#include "Views/StatusPill/StatusPillPlace.h"
#include "Views/StatusPill/StatusPopups.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QTest>

#include <gtest/gtest.h>

#include <stdexcept>

namespace tolvar::test {

inline StatusItemContent idle() {
    return {.length = StatusPill::thickness,
            .accessibleLabel = QStringLiteral("Tolvar"),
            .toolTip = QStringLiteral("Tolvar"),
            .menu = {{.command = StatusCommand::quit, .text = QStringLiteral("Quit")}}};
}

inline StatusItemContent countdown() {
    return {.length = 64,
            .label = QStringLiteral("24:59"),
            .isLabelHidden = false,
            .isSessionActive = true,
            .accessibleLabel = QStringLiteral("Tolvar, 24:59 remaining"),
            .toolTip = QStringLiteral("Tolvar, 24:59 remaining")};
}

/// A pill in its place.
class PillFixture : public testing::Test {
protected:
    MemoryPreferences preferences;
    HandFrames frames;
    AnimationDriver motion{frames};
    StatusPopups popups;
    StatusPillPlace place{
        {.preferences = preferences, .motion = motion, .popups = popups, .ends = [] {
             return StatusPill::Ends::smooth;
         }}};
    std::unique_ptr<StatusItem> item = place.makeItem();
    QStringList told;
    Subscription subscription =
        item->observe({.clicked =
                           [this](auto claimed) {
                               told += claimed == item->anchor()->center()
                                           ? QStringLiteral("clicked")
                                           : QStringLiteral("clicked elsewhere");
                           },
                       .chosen =
                           [this](StatusCommand command) {
                               told += QStringLiteral("chosen %1").arg(static_cast<int>(command));
                           },
                       .moved = [this] { told += QStringLiteral("moved"); }});

    StatusPill& pill() {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<StatusPill*>(widget))
                return *found;
        throw std::logic_error("no pill");
    }
    void show(const StatusItemContent& content) {
        item->show(content);
        told.clear();
    }
    void drag(QPoint way) {
        StatusPill& dragged = pill();
        const QPoint middle = dragged.rect().center();
        QTest::mousePress(&dragged, Qt::LeftButton, {}, middle);
        QMouseEvent move(QEvent::MouseMove, middle, dragged.mapToGlobal(middle) + way, Qt::NoButton,
                         Qt::LeftButton, {});
        QApplication::sendEvent(&dragged, &move);
        QTest::mouseRelease(&dragged, Qt::LeftButton, {}, middle);
    }
    static QRect screen() { return QGuiApplication::primaryScreen()->availableGeometry(); }
};

} // namespace tolvar::test
