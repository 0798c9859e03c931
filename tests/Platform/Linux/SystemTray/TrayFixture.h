#pragma once

#include "Platform/Interfaces/StatusItemPopups.h"
#include "Platform/Linux/SystemTray/SystemTrayPlace.h"
#include "Support/Texts.h"

#include <QColor>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPainter>
#include <QStringList>

#include <gtest/gtest.h>

#include <functional>
#include <vector>

namespace tolvar::test {

/// Menus and tooltips that nobody sees.
class FakePopups final : public StatusItemPopups {
public:
    std::vector<StatusMenuEntry> menu;
    QRect place;
    std::function<void(StatusCommand)> chosen;
    QString toolTip;

    void showMenu(const std::vector<StatusMenuEntry>& entries, const QRect& item,
                  std::function<void(StatusCommand)> choose) override {
        menu = entries;
        place = item;
        chosen = std::move(choose);
    }
    void showToolTip(const QString& text, const QRect&) override { toolTip = text; }
    void hideToolTip() override { toolTip.clear(); }
};

/// A status item in whatever tray there is, drawn as a square in the middle or at the beginning.
class TrayFixture : public testing::Test {
protected:
    struct Painting {
        StatusItemContent content;
        QSizeF size;
        QColor ink;
    };

    FakePopups popups;
    std::vector<Painting> painted;
    QStringList told;
    std::unique_ptr<SystemTrayPlace> place;
    std::unique_ptr<StatusItem> item;
    Subscription subscription;

    void SetUp() override { place = makePlace(1); }

    std::unique_ptr<SystemTrayPlace> makePlace(double scale) {
        return SystemTrayPlace::create({.art = art(), .popups = popups, .scale = scale});
    }

    void makeItem(double scale = 1) {
        place = makePlace(scale);
        item = place->makeItem();
        subscription = item->observe(
            {.clicked =
                 [this](auto claimed) {
                     told += QStringLiteral("clicked %1 %2").arg(claimed->x()).arg(claimed->y());
                 },
             .chosen =
                 [this](StatusCommand command) {
                     told += QStringLiteral("chosen %1").arg(static_cast<int>(command));
                 },
             .moved = [this] { told += QStringLiteral("moved"); },
             .measuresChanged = [this] { told += QStringLiteral("measured"); }});
    }

    /// A session's content, `length` points long.
    static StatusItemContent countdown(int length) {
        return {.length = length,
                .label = QStringLiteral("24:59"),
                .isLabelHidden = false,
                .accessibleLabel = QStringLiteral("Tolvar, 24:59 remaining"),
                .toolTip = QStringLiteral("Tolvar, 24:59 remaining")};
    }

    /// Handles events until the condition holds; false when it did not within some seconds.
    static bool eventually(const std::function<bool()>& holds) {
        QElapsedTimer passed;
        passed.start();
        while (!holds()) {
            if (passed.hasExpired(10000))
                return false;
            QCoreApplication::processEvents(QEventLoop::AllEvents, 5);
        }
        return true;
    }

private:
    static constexpr double castle = 16;

    static QRectF castlePlace(const StatusItemContent& content, const QSizeF& size) {
        const double left = content.isLabelHidden ? (size.width() - castle) / 2 : 4;
        return {left, (size.height() - castle) / 2, castle, castle};
    }

    StatusItemArt art() {
        return {.iconWidth = [](double) { return castle; },
                .labelWidth = [](const QString& label,
                                 double) { return 7.0 * static_cast<double>(label.size()); },
                .iconPlace = castlePlace,
                .paint =
                    [this](QPainter& painter, const StatusItemContent& content, const QSizeF& size,
                           const QColor& ink) {
                        painted.push_back({content, size, ink});
                        painter.fillRect(castlePlace(content, size), ink);
                    },
                .paintIcon = {}};
    }
};

} // namespace tolvar::test
