#include "base/windows/choosers.h"

#include <QColorDialog>

std::function<std::optional<QColor>(const QColor&, QWidget*)> askcolour = colourdialog;
std::function<std::optional<FontChoice>(const FontChoice&, QWidget*)> askfont = fontdialog;

std::optional<QColor> colourdialog(const QColor& start, QWidget* parent)
{
    const QColor chosen = QColorDialog::getColor(start, parent);
    return chosen.isValid() ? std::optional(chosen) : std::nullopt;
}
