#pragma once

#include <QPixmap>
#include <QWidget>

#include <functional>
#include <optional>

/// The picture of the link window: a graph that is painted anew at every size, and over it a
/// vertical cursor line and a line of text.
class LinkView : public QWidget
{
    Q_OBJECT

public:
    using Graph = std::function<void(const QSizeF& size, QPainter& painter)>;

    explicit LinkView(QWidget* parent);

    /// Shows a graph; an empty one erases the picture.
    void setgraph(Graph painted);
    /// Puts the cursor at a share of the width, from 0 at the left edge to 1; none hides it.
    void placeline(std::optional<double> share);
    std::optional<double> lineplace() const { return line; }
    void settext(const QString& shown);
    const QString& textline() const { return text; }
    /// The graph alone, in the pixels of the screen.
    const QPixmap& picture();

    QSize sizeHint() const override;

signals:
    /// The mouse is at a share of the width.
    void moved(double share, bool pressed);
    /// An arrow key: -1 to the left, 1 to the right.
    void stepped(int direction);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void report(const QMouseEvent& event);
    void painttext(QPainter& painter);

    Graph graph;
    QPixmap kept; ///< the graph as painted last
    bool stale = true;
    std::optional<double> line;
    QString text;
};
