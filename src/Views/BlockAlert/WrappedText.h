#pragma once

#include <QColor>
#include <QFont>
#include <QTextLayout>
#include <QWidget>

namespace tolvar {

/// A text on as many lines as it needs, up to a limit, within a fixed width. A word that is longer
/// than a line is broken anywhere; what goes beyond the last line is cut off with an ellipsis. To
/// assistive technology it is a label with the whole text.
class WrappedText final : public QWidget {
    Q_OBJECT

public:
    struct Style {
        QFont font;
        QColor ink;
        int width = 0;
        int mostLines = 1;
    };

    WrappedText(const QString& text, const Style& style, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void layOut(const QString& text);

    const Style m_style;
    QTextLayout m_layout;
};

} // namespace tolvar
