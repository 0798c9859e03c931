#pragma once

#include "Motion/AnimatedValue.h"
#include "Views/AppPicker/AppPickerModel.h"
#include "Views/AppPicker/AppPickerRow.h"
#include "Views/Shared/ControlContext.h"
#include "Views/Shared/FocusRing.h"

#include <QAbstractScrollArea>

#include <map>
#include <memory>
#include <set>
#include <vector>

namespace tolvar {

class ApplicationIcons;

/// The applications to choose from, in a well that scrolls. Only rows in view are painted, and only
/// then their icons looked up. Arrows go from row to row, Space toggles one; keys it has no use for
/// go on to what it stands in.
class AppPickerList final : public QAbstractScrollArea, public HasFocusRim {
    Q_OBJECT

public:
    /// `icons` outlives the list.
    AppPickerList(const ControlContext& context, ApplicationIcons& icons,
                  QWidget* parent = nullptr);
    ~AppPickerList() override;

    const std::vector<AppPickerModel::Row>& rows() const { return m_rows; }
    /// Begins at the top. `emptyText` stands there in place of rows.
    void setRows(std::vector<AppPickerModel::Row> rows, const QString& emptyText);
    const QString& emptyText() const { return m_emptyText; }
    /// Check marks of rows in view come and go by a spring.
    void setSelectedApps(const std::set<QString>& names);
    bool isSelected(int row) const;

    /// The row under a point of the viewport; -1 for none.
    int rowAt(const QPoint& point) const;
    /// The place of a row in the viewport; it may be out of view.
    QRect rowRect(int row) const;
    /// The row that the keyboard is on; -1 for none.
    int currentRow() const { return m_current; }
    void setCurrentRow(int row);
    /// As a click on the row does; nothing on a heading.
    void toggleRow(int row);

    /// None: the row that the keyboard is on has an outline of its own.
    QRectF focusRim() const override { return {}; }
    double focusRadius() const override { return 0; }

Q_SIGNALS:
    void toggled(const QString& name);
    /// The keyboard goes further up than the first row.
    void leftAtTop();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override { mousePressEvent(event); }
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    bool isApp(int row) const;
    int nextApp(int from, int step) const;
    int pageFrom(int row, int direction) const;
    void moveBy(int row);
    void updateScrollRange();
    void updateRow(int row);
    void updateHover(const QPoint& point);
    void moveCheck(const QString& name, int row, bool isSelected);
    double checkOf(const QString& name) const;
    void paintRow(QPainter& painter, int row) const;

    const ControlContext m_context;
    ApplicationIcons& m_icons;
    std::vector<AppPickerModel::Row> m_rows;
    /// Where each row begins, and behind the last where it ends.
    std::vector<int> m_tops{0};
    QString m_emptyText;
    std::set<QString> m_selectedApps;
    /// The check marks that have moved since the list was shown.
    std::map<QString, std::unique_ptr<AnimatedValue>> m_checks;
    AnimatedValue m_hover;
    int m_hovered = -1;
    int m_pressed = -1;
    int m_current = -1;
    bool m_cameByKeyboard = false;
};

} // namespace tolvar
