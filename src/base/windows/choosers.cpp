#include "base/windows/choosers.h"

#include <QColorDialog>
#include <QFontDialog>

std::function<std::optional<QColor>(const QColor&, QWidget*)> askcolour = colourdialog;
std::function<std::optional<QFont>(const QFont&, QWidget*)> askfont = fontdialog;

std::optional<QColor> colourdialog(const QColor& start, QWidget* parent)
{
    const QColor chosen = QColorDialog::getColor(start, parent);
    return chosen.isValid() ? std::optional(chosen) : std::nullopt;
}

std::optional<QFont> fontdialog(const QFont& start, QWidget* parent)
{
    bool chosen = false;
    const QFont font = QFontDialog::getFont(&chosen, start, parent);
    return chosen ? std::optional(font) : std::nullopt;
}
