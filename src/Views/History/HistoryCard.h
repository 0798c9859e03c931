#pragma once

#include "Views/History/HistoryCardContent.h"

#include <QWidget>

namespace tolvar {

class ApplicationIcons;

/// A session of the history as a card. It can be given to another session at any time.
class HistoryCard final : public QWidget {
    Q_OBJECT

public:
    /// Points.
    static constexpr int fixedHeight = 84;

    /// `icons` outlives the card.
    explicit HistoryCard(ApplicationIcons& icons, QWidget* parent = nullptr);

    const HistoryCardContent& content() const { return m_content; }
    void setContent(const HistoryCardContent& content);

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    /// Where its lines stand.
    struct Lines {
        QRectF title;
        QRectF blocked;
        QRectF date;
    };

    Lines lines() const;
    void paintOutcome(QPainter& painter, QRectF& line) const;
    void paintTimes(QPainter& painter, const QRectF& line) const;

    ApplicationIcons& m_icons;
    HistoryCardContent m_content;
};

} // namespace tolvar
