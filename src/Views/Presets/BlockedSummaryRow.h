#pragma once

#include <QFont>
#include <QStringList>

class QPainter;
class QPointF;
class QRectF;

namespace tolvar {

class ApplicationIcons;
struct BlockedSummary;

/// What a session or preset blocks, in one line of a card: the icons of some applications and how
/// many websites.
struct BlockedSummaryRow {
    QStringList appNames = {};
    int websiteCount = 0;
    int maxIcons = 5;
    /// A side, in points.
    double iconSize = 18;

    static BlockedSummaryRow of(const BlockedSummary& summary);

    bool isEmpty() const { return appNames.isEmpty() && websiteCount < 1; }
    /// The names whose icons are shown: those that have one of their own before the others.
    QStringList shownApps(ApplicationIcons& icons) const;
    /// "3 sites", behind icons "and 3 sites"; empty without websites.
    QString sitesText() const;
    /// All of it in words, with every application by name; empty when there is nothing.
    QString spokenText() const;

    /// From the leading edge of `line`, in the middle of its height.
    void paint(QPainter& painter, const QRectF& line, ApplicationIcons& icons,
               Qt::LayoutDirection direction) const;
    /// The application whose icon `paint` would put at a point; empty where there is none.
    QString appAt(const QPointF& point, const QRectF& line, ApplicationIcons& icons,
                  Qt::LayoutDirection direction) const;
};

} // namespace tolvar
