#include "Views/AppPicker/AppSearchField.h"

#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Theme/Instrument.h"
#include "Views/Theme/Symbol.h"

#include <QEvent>
#include <QPainter>
#include <QStyle>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    InstrumentField::Style field{.fontSize = 12, .padding = {38, 11, 38, 11}, .radius = 8};
    double symbol = 12;
    int symbolLeft = 13;
    double clearSymbol = 11;
    int clearSide = 26;
    int clearRight = 6;
};
const Look look;

/// The lens that says what the line is for.
class Lens final : public QWidget {
public:
    explicit Lens(QWidget* parent)
        : QWidget(parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
        resize(symbolSize(Symbol::magnifyingglass, look.symbol).toSize());
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        paintSymbol(painter, Symbol::magnifyingglass, rect(), Palette::labelTertiary);
    }
};

/// A symbol without a key's body: it stands on the field.
KeyStyle bareKey() {
    KeyStyle style = KeyStyle::nudge();
    for (auto& stop : style.bevel.face)
        stop.color = Qt::transparent;
    style.bevel.top = style.bevel.bottom = Qt::transparent;
    style.bevel.topWidth = style.bevel.bottomWidth = 0;
    style.padding = {0, 0, 0, 0};
    style.symbolSize = look.clearSymbol;
    style.ink = Palette::labelTertiary;
    return style;
}

} // namespace

AppSearchField::AppSearchField(const ControlContext& context, QWidget* parent)
    : QWidget(parent)
    , m_field(new InstrumentField(context, u"Search apps"_s, look.field, this))
    , m_symbol(new Lens(this))
    , m_clear(new KeyButton(context, bareKey(), u"Clear search"_s, this)) {
    setFocusProxy(m_field);
    m_clear->setSymbol(Symbol::xmarkCircleFill);
    m_clear->setShowsText(false);
    m_clear->setToolTip(m_clear->name());
    m_clear->hide();
    connect(m_field, &QLineEdit::textChanged, this, [this](const QString& text) {
        // Who pressed it by the keyboard goes on in the line.
        if (text.isEmpty() && m_clear->hasFocus())
            m_field->setFocus(Qt::OtherFocusReason);
        m_clear->setVisible(!text.isEmpty());
        Q_EMIT textChanged(text);
    });
    connect(m_clear, &KeyButton::clicked, this, [this] {
        clear();
        m_field->setFocus(Qt::OtherFocusReason);
    });
}

QString AppSearchField::text() const {
    return m_field->text();
}

void AppSearchField::clear() {
    m_field->clear();
}

QSize AppSearchField::sizeHint() const {
    return m_field->sizeHint();
}

void AppSearchField::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    place();
}

void AppSearchField::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        place();
}

void AppSearchField::place() {
    const auto at = [this](int left, const QSize& size) {
        const QRect place(QPoint(left, (height() - size.height()) / 2), size);
        return QStyle::visualRect(layoutDirection(), rect(), place);
    };
    m_field->setGeometry(rect());
    m_symbol->setGeometry(at(look.symbolLeft, m_symbol->size()));
    m_clear->setGeometry(
        at(width() - look.clearRight - look.clearSide, {look.clearSide, look.clearSide}));
}

} // namespace tolvar
