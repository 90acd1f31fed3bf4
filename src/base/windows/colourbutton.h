#pragma once

#include <QAbstractButton>

#include <cstdint>

/// A button that is a patch of colour; a press asks for another one.
class ColourButton : public QAbstractButton
{
    Q_OBJECT

public:
    explicit ColourButton(QWidget* parent = nullptr);

    std::int32_t colour() const { return value; } ///< 0x00BBGGRR
    void setcolour(std::int32_t colour);

    QSize sizeHint() const override;

signals:
    void changed(std::int32_t colour);

protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void choose();

    std::int32_t value = 0;
};
