#pragma once

#include <QColor>
#include <QString>

#include <functional>
#include <optional>

class QWidget;

/// A font of texts on pictures, as the settings keep it. The name stays what it is where the system
/// has no such font and draws with another one.
struct FontChoice {
    QString name;
    int points = 8;
    bool bold = false;
    bool italic = false;
    bool operator==(const FontChoice&) const = default;
};

/// The platform's colour dialog and our own for fonts, opened on a colour or font; nothing when the
/// user gives up. Tests put their own answers in their place.
extern std::function<std::optional<QColor>(const QColor&, QWidget*)> askcolour;
extern std::function<std::optional<FontChoice>(const FontChoice&, QWidget*)> askfont;

/// What they are by default.
std::optional<QColor> colourdialog(const QColor& start, QWidget* parent);
std::optional<FontChoice> fontdialog(const FontChoice& start, QWidget* parent);
