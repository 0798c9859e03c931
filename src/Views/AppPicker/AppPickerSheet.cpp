#include "Views/AppPicker/AppPickerSheet.h"

#include "Platform/Interfaces/InstalledApplications.h"
#include "Platform/Interfaces/Workspace.h"
#include "Services/AppBlockerService.h"
#include "Views/AppPicker/AppPickerList.h"
#include "Views/AppPicker/AppSearchField.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/Paint/Paint.h"
#include "Views/Shared/InstrumentField.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Theme/Instrument.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace tolvar {

using namespace Qt::StringLiterals;

namespace {

namespace Palette = Instrument::Palette;

struct Look {
    QSize largest{328, 496};
    /// Around the content: the card's padding, and air between card and window.
    QSize around{2 * (20 + 14), 2 * (20 + 20)};
    int belowTitle = 4;
    int aboveNotice = 12;
    int noticePadding = 10;
    double noticeRadius = 8;
    int belowHeader = 14;
    int belowSearch = 12;
    int belowList = 14;
    int betweenKeys = 8;
};
constexpr Look look;

QLabel* label(const QString& text, const QFont& font, const QColor& ink) {
    auto* made = new QLabel(text);
    QPalette inks;
    inks.setColor(QPalette::WindowText, ink);
    made->setFont(font);
    made->setPalette(inks);
    return made;
}

/// A plain remark with a line around it.
class Notice final : public QLabel {
public:
    explicit Notice(const QString& text)
        : QLabel(text) {
        QPalette inks;
        inks.setColor(QPalette::WindowText, Palette::labelSecondary);
        setPalette(inks);
        setFont(Instrument::font(11));
        setWordWrap(true);
        setMargin(look.noticePadding);
    }

protected:
    void paintEvent(QPaintEvent* event) override {
        {
            QPainter painter(this);
            Paint::outline(painter, rect(), look.noticeRadius, Palette::hairline);
        }
        QLabel::paintEvent(event);
    }
};

KeyStyle doneKey() {
    KeyStyle style = KeyStyle::primary();
    style.font = Instrument::font(12, QFont::Medium, 0.24);
    style.padding = {18, 10, 18, 11};
    style.radius = 7;
    return style;
}

/// What is written somewhere, not what commands something.
bool isWritten(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().front().isPrint() &&
           !(event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier));
}

/// What is installed as it was when somebody looked.
class Listed final : public InstalledApplications {
public:
    explicit Listed(std::vector<InstalledApplication> applications)
        : m_applications(std::move(applications)) {}
    std::vector<InstalledApplication> list() const override { return m_applications; }

private:
    const std::vector<InstalledApplication> m_applications;
};

} // namespace

AppPickerSheet::AppPickerSheet(const ControlContext& context, const Environment& environment,
                               QWidget& window)
    : Sheet(context, u"Block specific apps"_s, window)
    , m_environment(environment) {
    m_content = makeContent(context);
    setContent(m_content);
    connect(m_search, &AppSearchField::textChanged, this, &AppPickerSheet::search);
    connect(m_list, &AppPickerList::toggled, this, &AppPickerSheet::toggle);
    connect(m_list, &AppPickerList::leftAtTop, this,
            [this] { m_search->field().setFocus(Qt::BacktabFocusReason); });
}

QWidget* AppPickerSheet::makeContent(const ControlContext& context) {
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(
        label(u"Block specific apps"_s, Instrument::font(15, QFont::Medium, 0.3), Palette::label));
    column->addSpacing(look.belowTitle);
    column->addWidget(label(u"These stay hidden while you focus."_s, Instrument::font(12),
                            Palette::labelSecondary));
    m_notice = new QWidget;
    auto* notice = new QVBoxLayout(m_notice);
    notice->setContentsMargins(0, look.aboveNotice, 0, 0);
    notice->addWidget(new Notice(u"On this desktop apps cannot be hidden; they stay in view."_s));
    column->addWidget(m_notice);
    column->addSpacing(look.belowHeader);
    m_search = new AppSearchField(context);
    column->addWidget(m_search);
    column->addSpacing(look.belowSearch);
    m_list = new AppPickerList(context, m_environment.icons);
    m_list->setAccessibleName(u"Apps"_s);
    column->addWidget(m_list, 1);
    column->addSpacing(look.belowList);
    column->addWidget(makeFooter(context));
    return content;
}

QWidget* AppPickerSheet::makeFooter(const ControlContext& context) {
    auto* footer = new QWidget;
    auto* row = new QHBoxLayout(footer);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(look.betweenKeys);
    m_count = label({}, Instrument::font(12), Palette::labelSecondary);
    m_clear = new KeyButton(context, KeyStyle::card(), u"Clear"_s);
    auto* done = new KeyButton(context, doneKey(), u"Done"_s);
    row->addWidget(m_count, 1);
    row->addWidget(m_clear);
    row->addWidget(done);
    connect(m_clear, &KeyButton::clicked, this, &AppPickerSheet::clearSelection);
    connect(done, &KeyButton::clicked, this, &Sheet::sink);
    return footer;
}

void AppPickerSheet::open(const std::set<QString>& selectedApps) {
    const Listed installed(m_environment.installed.list());
    m_environment.icons.refresh(installed.list());
    m_model.loadInstalledApps(selectedApps,
                              getInstalledApplications(installed, m_environment.ownName));
    m_notice->setVisible(m_environment.workspace.hidingSupport() != HidingSupport::full);
    m_search->clear();
    showRows();
    showSelection();
    fit();
    rise();
    m_search->field().setFocus(Qt::OtherFocusReason);
}

/// With air between the card and the window's edge.
void AppPickerSheet::fit() {
    const QSize room = parentWidget()->size() - look.around;
    m_content->setFixedSize(room.boundedTo(look.largest));
    setContent(m_content);
}

void AppPickerSheet::resizeEvent(QResizeEvent* event) {
    Sheet::resizeEvent(event);
    fit();
}

void AppPickerSheet::search(const QString& text) {
    m_model.setSearchText(text);
    showRows();
}

void AppPickerSheet::toggle(const QString& name) {
    m_model.toggle(name);
    showSelection();
    Q_EMIT selectionChanged(m_model.selectedApps());
}

void AppPickerSheet::clearSelection() {
    m_model.clearSelection();
    showSelection();
    Q_EMIT selectionChanged(m_model.selectedApps());
}

void AppPickerSheet::showRows() {
    m_list->setRows(m_model.rows(), m_model.emptyText());
}

void AppPickerSheet::showSelection() {
    m_list->setSelectedApps(m_model.selectedApps());
    m_count->setText(m_model.countText());
    if (m_model.selectedApps().empty() && m_clear->hasFocus())
        m_list->setFocus(Qt::OtherFocusReason);
    m_clear->setEnabled(!m_model.selectedApps().empty());
}

/// What nothing on the card has had a use for.
void AppPickerSheet::keyPressEvent(QKeyEvent* event) {
    InstrumentField& field = m_search->field();
    switch (event->key()) {
    case Qt::Key_Escape:
        if (!m_search->text().isEmpty())
            return m_search->clear();
        return sink();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return sink();
    case Qt::Key_Down:
        return m_list->setFocus(Qt::TabFocusReason);
    default:
        break;
    }
    if (!field.hasFocus() && (isWritten(*event) || event->key() == Qt::Key_Backspace)) {
        field.setFocus(Qt::OtherFocusReason);
        QCoreApplication::sendEvent(&field, event);
        return;
    }
    Sheet::keyPressEvent(event);
}

} // namespace tolvar
