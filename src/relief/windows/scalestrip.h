#pragma once

#include <QWidget>

#include <array>
#include <cstdint>

/// The rainbow scale as a strip, high ground on top: in bands, or with its colours running into one
/// another as map pictures have them.
class ScaleStrip : public QWidget
{
public:
    explicit ScaleStrip(QWidget* parent = nullptr);

    void show(const std::array<std::int32_t, 12>& colortable, bool bands);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::array<std::int32_t, 12> table{};
    bool flat = false;
};
