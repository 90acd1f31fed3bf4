#include "pictures/paint/fonts.h"

#include "base/session.h"

#include <algorithm>

namespace
{

/// Sizes are in picture pixels at the classic 96 per inch, so that a picture looks the same
/// wherever it is drawn.
QFont sansfont(const QString& family, int points)
{
    QFont font(family);
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(std::max(1, (points * 96 + 36) / 72));
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}

} // namespace

QFont labelfont()
{
    QFont font = sansfont(QString::fromStdString(session.drawfontname), session.drawfontsize);
    font.setBold(session.drawfontbold);
    font.setItalic(session.drawfontitalic);
    return font;
}

QFont legendfont()
{
    constexpr int points = 7;
    return sansfont(QStringLiteral("Small Fonts"), points);
}
