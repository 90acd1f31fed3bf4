#pragma once

#include <QFont>
#include <QWidget>

#include <cstdint>

/// A station's label as it will look on a picture, on a ground that every colour shows on.
class SampleLabel : public QWidget
{
    Q_OBJECT

public:
    explicit SampleLabel(QWidget* parent);

    struct Look {
        QString name;
        QFont font;
        std::int32_t forecolour = 0xFFFFFF; ///< 0x00BBGGRR
        std::int32_t backcolour = 0;
        bool transparent = false;
    };
    void setlook(const Look& wanted);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Look look;
};
