#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QPushButton>

/// A button that Enter in a field doesn't press.
QPushButton* namedbutton(const QString& name, const QString& caption, QWidget* parent);

QCheckBox* namedcheck(const QString& name, const QString& caption, QWidget* parent);
QComboBox* namedlist(const QString& name, QWidget* parent);

/// A titled box with a form in it.
QGroupBox* formbox(const QString& title, QFormLayout*& form, QWidget* parent);
