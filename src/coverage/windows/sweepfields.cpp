#include "coverage/windows/sweepfields.h"

#include "base/windows/boxes.h"

QGroupBox* azimuthbox(const QString& title, const std::array<QString, 3>& captions,
                      SweepFields& fields, QWidget* parent)
{
    QFormLayout* form = nullptr;
    QGroupBox* box = formbox(title, form, parent);
    fields.azmin = new NumberField(QStringLiteral("azmin"), 0, 359.9, box);
    fields.azmax = new NumberField(QStringLiteral("azmax"), 0, 360, box);
    fields.step = new NumberField(QStringLiteral("step"), 0.1, 10, box);
    form->addRow(captions[0], fields.azmin);
    form->addRow(captions[1], fields.azmax);
    form->addRow(captions[2], fields.step);
    return box;
}

QGroupBox* rangebox(const QString& title, const std::array<QString, 2>& captions,
                    SweepFields& fields, QWidget* parent)
{
    QFormLayout* form = nullptr;
    QGroupBox* box = formbox(title, form, parent);
    fields.rmin = new NumberField(QStringLiteral("rmin"), 0.1, 1000, box);
    fields.rmax = new NumberField(QStringLiteral("rmax"), 1, 1000, box);
    form->addRow(captions[0], fields.rmin);
    form->addRow(captions[1], fields.rmax);
    return box;
}

void showsweep(const CoverageParams& params, const SweepFields& fields)
{
    fields.azmin->setnumber(params.azmin);
    fields.azmax->setnumber(params.azmax);
    fields.step->setnumber(params.azstep);
    fields.rmin->setnumber(params.rangemin);
    fields.rmax->setnumber(params.rangemax);
}

void takesweep(const SweepFields& fields, CoverageParams& params)
{
    params.azmin = static_cast<float>(fields.azmin->value());
    params.azmax = static_cast<float>(fields.azmax->value());
    params.azstep = static_cast<float>(fields.step->value());
    params.rangemin = static_cast<float>(fields.rmin->value());
    params.rangemax = static_cast<float>(fields.rmax->value());
}
