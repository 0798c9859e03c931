#include "Gallery/PickerPages.h"

#include "Gallery/SampleApplications.h"
#include "Platform/Null/NullIconThemeSettings.h"
#include "Platform/Null/NullWorkspace.h"
#include "Views/AppPicker/AppIconStack.h"
#include "Views/AppPicker/AppIconView.h"
#include "Views/AppPicker/AppPickerSheet.h"
#include "Views/AppPicker/ApplicationIcons.h"
#include "Views/BlockAlert/BlockAlertPanel.h"
#include "Views/BlockAlert/BlockAlertView.h"
#include "Views/Shared/KeyButton.h"
#include "Views/Shared/Labels.h"
#include "Views/Theme/Instrument.h"

#include <QGridLayout>
#include <QLineEdit>
#include <QPainter>
#include <QVBoxLayout>

namespace tolvar::gallery {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize windowSize{400, 578};
constexpr int margin = 20;

/// Nothing runs, and windows can be hidden, or cannot.
class SampleWorkspace final : public Workspace {
public:
    explicit SampleWorkspace(HidingSupport support)
        : m_support(support) {}

    HidingSupport hidingSupport() const override { return m_support; }
    std::vector<RunningApplication> runningApplications() const override { return {}; }
    std::optional<RunningApplication> frontmostApplication() const override { return {}; }
    std::optional<RunningApplication> application(const ApplicationHandle&) const override {
        return {};
    }
    std::vector<ArgbPicture> icon(const ApplicationHandle&) const override { return {}; }
    void hide(const ApplicationHandle&) override {}
    void unhide(const ApplicationHandle&) override {}
    void activateSelf() override {}
    std::vector<ApplicationHandle> hiddenByEarlierRun() const override { return {}; }
    Subscription observe(Observer) override { return {}; }

private:
    const HidingSupport m_support;
};

struct PickerScene {
    std::vector<InstalledApplication> installed = SampleApplications::few();
    std::set<QString> selected = {};
    QString search = {};
    HidingSupport support = HidingSupport::full;
    Qt::LayoutDirection direction = Qt::LeftToRight;
};

/// The window with the picker up.
class PickerPage final : public QWidget {
public:
    PickerPage(const ControlContext& context, const PickerScene& scene)
        : m_installed(scene.installed)
        , m_workspace(scene.support)
        , m_icons({m_installed, m_workspace, m_theme}) {
        setFixedSize(windowSize);
        setLayoutDirection(scene.direction);
        auto* key = new KeyButton(context, KeyStyle::standard(), u"Block specific apps"_s, this);
        key->setGeometry(margin, margin, width() - 2 * margin, key->sizeHint().height());
        auto* sheet = new AppPickerSheet(context, {m_installed, m_workspace, m_icons, {}}, *this);
        QObject::connect(key, &KeyButton::clicked, sheet,
                         [sheet] { sheet->open(sheet->selectedApps()); });
        sheet->open(scene.selected);
        if (!scene.search.isEmpty())
            sheet->findChild<QLineEdit*>()->setText(scene.search);
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Instrument::Palette::panel);
    }

private:
    SampleApplications m_installed;
    SampleWorkspace m_workspace;
    NullIconThemeSettings m_theme;
    ApplicationIcons m_icons;
};

Page picker(const QString& name, const PickerScene& scene) {
    return {name, [scene](const ControlContext& context) -> QWidget* {
                return new PickerPage(context, scene);
            }};
}

/// Icons by themselves and in rows, with and without pictures.
class IconsPage final : public QWidget {
public:
    IconsPage()
        : m_installed(SampleApplications::few())
        , m_workspace(HidingSupport::full)
        , m_icons({m_installed, m_workspace, m_theme}) {
        const QStringList names{u"Chat"_s,  u"Mail"_s,  u"Missing"_s,
                                u"Music"_s, u"Notes"_s, u"Photos"_s};
        auto* grid = new QGridLayout(this);
        grid->setContentsMargins(margin, margin, margin, margin);
        int row = 0;
        for (const double size : {16.0, 20.0, 24.0, 40.0})
            for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
                auto* stack = new AppIconStack(m_icons, size);
                stack->setLayoutDirection(direction);
                stack->setAppNames(names);
                grid->addWidget(new SectionLabel(u"%1"_s.arg(size)), row, 0);
                grid->addWidget(stack, row, 1);
                grid->addWidget(new AppIconView(m_icons, u"Browser"_s, size), row, 2);
                grid->addWidget(new AppIconView(m_icons, u"Missing"_s, size), row++, 3);
            }
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), Instrument::Palette::panel);
    }

private:
    SampleApplications m_installed;
    SampleWorkspace m_workspace;
    NullIconThemeSettings m_theme;
    ApplicationIcons m_icons;
};

/// The alert over something that is not dark, as it stands on a desktop.
class AlertPage final : public QWidget {
public:
    AlertPage(const ControlContext& context, const QString& name, BlockTarget type) {
        auto* view = new BlockAlertView(context, BlockAlertView::texts(name, type));
        auto* panel = new BlockAlertPanel(view, BlockAlertPanel::Surroundings::shadow);
        panel->setParent(this, Qt::Widget);
        setFixedSize(panel->size());
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        QLinearGradient evening(rect().topLeft(), rect().bottomRight());
        evening.setColorAt(0, {112, 128, 144});
        evening.setColorAt(1, {198, 178, 160});
        painter.fillRect(rect(), evening);
    }
};

Page alert(const QString& page, const QString& name, BlockTarget type) {
    return {page, [name, type](const ControlContext& context) -> QWidget* {
                return new AlertPage(context, name, type);
            }};
}

} // namespace

std::vector<Page> pickerPages() {
    using Icons = SampleApplications::Icons;
    return {
        picker(u"pickerSelected"_s, {.selected = {u"Chat"_s, u"Mail"_s, u"Old Game"_s}}),
        picker(u"pickerNone"_s, {}),
        picker(u"pickerNoMatch"_s, {.selected = {u"Chat"_s}, .search = u"Kaleidoscope"_s}),
        picker(u"pickerMany"_s, {.installed = SampleApplications::many(), .search = u"mus"_s}),
        picker(u"pickerLongNames"_s,
               {.installed = SampleApplications::longNames(),
                .selected = {u"Browserrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrrr"_s}}),
        picker(u"pickerPlaceholders"_s, {.installed = SampleApplications::few(Icons::none)}),
        picker(u"pickerNotHidden"_s, {.selected = {u"Music"_s}, .support = HidingSupport::none}),
        picker(u"pickerNothing"_s, {.installed = {}}),
        picker(u"pickerRightToLeft"_s, {.installed = SampleApplications::longNames(),
                                        .selected = {u"Écran d’accueil"_s},
                                        .direction = Qt::RightToLeft}),
        {u"appIcons"_s, [](const ControlContext&) -> QWidget* { return new IconsPage; }},
        alert(u"alertApp"_s, u"Chat"_s, BlockTarget::app),
        alert(u"alertSite"_s, u"news.example.org"_s, BlockTarget::site),
        alert(u"alertLong"_s, u"averyveryveryverylonghostnamethatneverseemstoend."_s.repeated(5),
              BlockTarget::site),
    };
}

} // namespace tolvar::gallery
