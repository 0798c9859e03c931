#pragma once

#include <QColor>
#include <QFont>
#include <QTextLayout>
#include <QWidget>

#include <optional>

namespace tolvar {

/// A text on as many lines as it needs, up to a limit, within a fixed width; the lines are about
/// equally long, so that no word is left alone on the last. A word that is longer than a line is
/// broken anywhere. Of a text that is too long the beginning and the end are there. To assistive
/// technology it is a label with the whole text.
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
    /// Where the first line begins that is one too many; nothing when there is none.
    std::optional<int> layOut(const QString& text, double width);
    void balance(const QString& text);

    const Style m_style;
    QTextLayout m_layout;
};

} // namespace tolvar
