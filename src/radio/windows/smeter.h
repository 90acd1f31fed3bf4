#pragma once

#include <QWidget>

/// An S-meter: nine green boxes for S 1 to S 9, three red ones for 10, 20 and 30 dB above.
class SMeter : public QWidget
{
    Q_OBJECT

public:
    SMeter(const QString& name, QWidget* parent);

    /// Shows a level on the S scale: 0 to 9, and from 10 to 60 so many dB above S 9.
    void smeter(float level);
    float level() const { return shown; }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    float shown = 0;
};
