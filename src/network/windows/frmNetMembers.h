#pragma once

#include "network/windows/frmNetPage.h"

class QComboBox;
class QGroupBox;
class QListWidgetItem;
class QRadioButton;

/// "Participants": which stations are members of a net, with their roles, systems and antenna
/// heights.
class MembersPage : public NetPage
{
    Q_OBJECT

public:
    MembersPage(TableActions& record, QWidget* parent);
    void fill() override;

    /// Shows a station's role and system in the net and whether it is a member, and stores the
    /// list's check mark. Nothing while `opbusy` is not 0.
    void updateheight(int station);
    /// Shows the antenna height of the selected station.
    void showheight();
    /// The name of the net or of a system is another.
    void showtitle();
    void showsystem(int system);

private:
    int chosen() const;
    float& ownheight() const;
    void makelist(QVBoxLayout& column);
    void makeframe();
    void makechoices(QGridLayout& grid);
    void makeheights(QGridLayout& grid);
    void fillroles();
    void checkmember(QListWidgetItem* item);
    void chooseheight(bool own);
    void takeheight();

    QListWidget* list = nullptr;
    QGroupBox* frame = nullptr;
    QWidget* fields = nullptr;
    QComboBox* roles = nullptr;
    QComboBox* systems = nullptr;
    QLabel* systemheight = nullptr;
    QRadioButton* ofsystem = nullptr;
    QRadioButton* other = nullptr;
    NumberField* height = nullptr;
};
