#pragma once

#include <QColor>
#include <QFont>

#include <functional>
#include <optional>

class QWidget;

/// The platform's colour and font dialogs, opened on a colour or font; nothing when the user gives
/// up. Tests put their own answers in their place.
extern std::function<std::optional<QColor>(const QColor&, QWidget*)> askcolour;
extern std::function<std::optional<QFont>(const QFont&, QWidget*)> askfont;

/// What they are by default.
std::optional<QColor> colourdialog(const QColor& start, QWidget* parent);
std::optional<QFont> fontdialog(const QFont& start, QWidget* parent);
