#pragma once

#include <QWidget>

namespace tolvar {

class PullToClear;

/// Shows above the list how far it is pulled, and what that will do: a ring that fills, and a text.
/// It comes out with the pull. The mouse goes through it.
class PullIndicator final : public QWidget {
    Q_OBJECT

public:
    /// `pull` outlives the indicator.
    explicit PullIndicator(const PullToClear& pull, QWidget* parent);

    /// Shows the pull as it is now; the list's first card rests `topInset` points below the
    /// parent's upper edge.
    void follow(int topInset);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    const PullToClear& m_pull;
};

} // namespace tolvar
