#pragma once

#include "network/windows/frmNetPage.h"

#include <array>

class QComboBox;

/// "Système": the 25 radio systems, and the predefined ones that their fields can be filled from.
class SystemsPage : public NetPage
{
    Q_OBJECT

public:
    SystemsPage(TableActions& record, QWidget* parent);
    void fill() override;

signals:
    /// The name or the antenna height of a system is another.
    void changed(int system);

protected:
    QString subject() const override;

private:
    int chosen() const;
    RadioSystem& shownsystem() const;
    void makelist(QVBoxLayout& column);
    void makepredefined(QVBoxLayout& column);
    void makefields(QGridLayout& grid);
    void takename();
    void takenumber(std::size_t row);
    void showlevel();
    void usepredefined(int entry);

    QListWidget* list = nullptr;
    QComboBox* predefined = nullptr;
    QLineEdit* name = nullptr;
    std::array<NumberField*, 5> numbers{};
    QLabel* level = nullptr; ///< the threshold in dBm
};
