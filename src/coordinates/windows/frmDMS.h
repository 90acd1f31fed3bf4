#pragma once

#include <QDialog>

#include <array>

class PreparedField;
class QLabel;
class QPushButton;

/// The one dialog in which a position is typed: degrees, minutes and seconds, or the combined
/// reference. It takes `picklon` and `picklat` when it opens, and writes them on "Appliquer".
class frmDMS : public QDialog
{
    Q_OBJECT

public:
    explicit frmDMS(QWidget* parent = nullptr);

    /// Position to the six fields. (Not the repainting of the same name, which a dialog of plain
    /// fields never asks for.)
    void update();
    /// Six fields to position and combined reference.
    void updatell();
    /// Combined reference to position.
    void updateqra();

    float lon = 0; ///< the position under edit, degrees
    float lat = 0;

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* makeaxis(const char* name, std::array<PreparedField*, 3>& fields,
                      QPushButton*& letter);
    void makewidgets();
    void apply();
    void flip(QPushButton* button, QChar one, QChar other);
    void fieldchanged();
    void combinedchanged();

    std::array<PreparedField*, 3> lonfields{};
    std::array<PreparedField*, 3> latfields{};
    QPushButton* lonletter = nullptr;
    QPushButton* latletter = nullptr;
    QLabel* combinedlabel = nullptr;
    PreparedField* combined = nullptr;
    bool updating = false; ///< the dialog writes its own fields
};
