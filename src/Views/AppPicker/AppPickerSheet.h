#pragma once

#include "Views/AppPicker/AppPickerModel.h"
#include "Views/Shared/Sheet.h"

#include <QString>

#include <set>

class QLabel;

namespace tolvar {

class AppPickerList;
class AppSearchField;
class ApplicationIcons;
class InstalledApplications;
class KeyButton;
class Workspace;

/// The sheet in which installed applications are ticked. Every tick counts at once; there is no
/// cancelling. Letters typed anywhere on it go to the search; Escape first empties that, then
/// closes; Return closes.
class AppPickerSheet final : public Sheet {
    Q_OBJECT

public:
    /// All outlive the sheet.
    struct Environment {
        const InstalledApplications& installed;
        const Workspace& workspace;
        ApplicationIcons& icons;
        /// Our own name, which is left out of the list.
        QString ownName;
    };

    AppPickerSheet(const ControlContext& context, const Environment& environment, QWidget& window);

    /// Rises with these applications selected, over what is installed by now.
    void open(const std::set<QString>& selectedApps);
    const std::set<QString>& selectedApps() const { return m_model.selectedApps(); }

Q_SIGNALS:
    /// A tick was set or taken away, or all were.
    void selectionChanged(const std::set<QString>& selectedApps);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* makeContent(const ControlContext& context);
    QWidget* makeFooter(const ControlContext& context);
    void fit();
    void search(const QString& text);
    void toggle(const QString& name);
    void clearSelection();
    void showRows();
    void showSelection();

    const Environment m_environment;
    AppPickerModel m_model;
    QWidget* m_content = nullptr;
    QWidget* m_notice = nullptr;
    AppSearchField* m_search = nullptr;
    AppPickerList* m_list = nullptr;
    QLabel* m_count = nullptr;
    KeyButton* m_clear = nullptr;
};

} // namespace tolvar
