#pragma once

#include <QPushButton>

#include <cstdint>
#include <functional>

/// A button with a swatch of its colour; a press asks for another one. Without a caption it is all
/// swatch.
class ColourButton : public QPushButton
{
    Q_OBJECT

public:
    explicit ColourButton(QWidget* parent = nullptr);
    ColourButton(const QString& name, const QString& caption, QWidget* parent);

    std::int32_t colour() const { return value; } ///< 0x00BBGGRR
    void setcolour(std::int32_t colour);
    /// Asks for a colour (`askcolour`) and takes the choice.
    void choose();
    /// What a press does in place of `choose`.
    void setpress(std::function<void()> action) { press = std::move(action); }

    QSize sizeHint() const override;

signals:
    /// The user chose a colour.
    void changed(std::int32_t colour);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void paintpatch();
    void paintswatch();

    std::int32_t value = 0;
    std::function<void()> press;
};
