#include "Views/BlockAlert/BlockAlertView.h"

#include "Views/BlockAlert/WrappedText.h"
#include "Views/Paint/Paint.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Theme/CastleMark.h"
#include "Views/Theme/Instrument.h"

#include <QAccessibleWidget>
#include <QVBoxLayout>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    int padding = 20;
    int spacing = 18;
    int betweenTexts = 10;
    int castle = 32;
    int mostTitleLines = 4;
    int mostMessageLines = 4;
    double keyPadding = 10;
};
constexpr Look look;

/// The castle above the words, a picture that says nothing.
class Castle final : public QWidget {
public:
    Castle() { setFixedSize(look.castle, look.castle); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintCastleMark(painter, rect(), Palette::amber);
    }
};

/// To assistive technology the castle is not there.
class CardFace final : public QAccessibleWidget {
public:
    explicit CardFace(BlockAlertView* view)
        : QAccessibleWidget(view, QAccessible::AlertMessage) {}

    int childCount() const override { return static_cast<int>(spoken().size()); }
    QAccessibleInterface* child(int index) const override {
        return QAccessible::queryAccessibleInterface(spoken().value(index));
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return static_cast<int>(spoken().indexOf(static_cast<QWidget*>(child->object())));
    }

private:
    QWidgetList spoken() const {
        QWidgetList widgets;
        for (auto* child : widget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly))
            if (!dynamic_cast<Castle*>(child))
                widgets << child;
        return widgets;
    }
};

QAccessibleInterface* faceOf(const QString&, QObject* object) {
    auto* view = qobject_cast<BlockAlertView*>(object);
    return view ? new CardFace(view) : nullptr;
}

KeyStyle keyStyle() {
    KeyStyle style = KeyStyle::primary();
    style.font = Instrument::font(12, QFont::Medium, 0.24);
    style.padding.setTop(look.keyPadding);
    style.padding.setBottom(look.keyPadding);
    return style;
}

QWidget* text(const QString& content, const QFont& font, const QColor& ink, int mostLines) {
    return new WrappedText(content, {.font = font,
                                     .ink = ink,
                                     .width = BlockAlertView::cardWidth - 2 * look.padding,
                                     .mostLines = mostLines});
}

} // namespace

BlockAlertView::Texts BlockAlertView::texts(const QString& name, BlockTarget type) {
    const QString kind = type == BlockTarget::site ? u"site"_s : u"app"_s;
    return {.title = u"You're tolvar, "_s + name + u" is blocked"_s,
            .message =
                u"This "_s + kind + u" will remain blocked until your focus session ends."_s};
}

BlockAlertView::BlockAlertView(const ControlContext& context, const Texts& texts, QWidget* parent)
    : QWidget(parent)
    , m_key(new KeyButton(context, keyStyle(), u"Back to work!"_s)) {
    QAccessible::installFactory(faceOf);
    setAccessibleName(texts.title);
    setAccessibleDescription(texts.message);
    setFixedWidth(cardWidth);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(look.padding, look.padding, look.padding, look.padding);
    column->setSpacing(0);
    column->addWidget(new Castle);
    column->addSpacing(look.spacing);
    column->addWidget(text(texts.title, Instrument::font(15, QFont::Medium, 0.3), Palette::label,
                           look.mostTitleLines));
    column->addSpacing(look.betweenTexts);
    column->addWidget(
        text(texts.message, Instrument::font(12), Palette::labelSecondary, look.mostMessageLines));
    column->addSpacing(look.spacing);
    column->addWidget(m_key);
    setFocusProxy(m_key);
    connect(m_key, &KeyButton::clicked, this, &BlockAlertView::dismissed);
}

void BlockAlertView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Paint::bevel(painter, rect(), cardRadius, Bevel::card);
    Paint::outline(painter, rect(), cardRadius, Palette::hairline);
}

} // namespace tolvar
