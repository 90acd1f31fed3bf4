#pragma once

#include <QPushButton>

#include <cstdint>

/// A button "Couleur" with a swatch of its colour, 0x00BBGGRR.
class SwatchButton : public QPushButton
{
    Q_OBJECT

public:
    SwatchButton(const QString& name, QWidget* parent);

    std::int32_t colour() const { return shown; }
    void setcolour(std::int32_t colour);
    /// Opens the standard colour dialog and takes the choice.
    void choose();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::int32_t shown = 0;
};
