#pragma once

#include "network/tables.h"
#include "network/windows/tableactions.h"

#include <QDialog>

class MembersPage;
class ParametersPage;
class QListWidget;
class QVBoxLayout;
class StylePage;
class SystemsPage;
class TopologyPage;

/// The properties of nets, of systems, and of the stations' membership in nets. Every field writes
/// through to the tables; "Annuler" brings back the nets and systems as they were at the opening.
class frmNet : public QDialog
{
    Q_OBJECT

public:
    explicit frmNet(QWidget* parent = nullptr);

    /// Fills every page from the selected net.
    void updatefields();

    void done(int result) override;

private:
    void makelist(QVBoxLayout& column);
    void makepages(QVBoxLayout& column);
    void makebuttons(QVBoxLayout& column);
    void connectpages();
    void choosenet(int row);
    void setdefaults();
    void takeback();

    TableActions actions;
    std::array<Net, MAXNET + 1> undonets;
    std::array<RadioSystem, MAXSYSTEM + 1> undosystems;
    QListWidget* netlist = nullptr;
    ParametersPage* parameters = nullptr;
    TopologyPage* topology = nullptr;
    SystemsPage* systems = nullptr;
    MembersPage* members = nullptr;
    StylePage* style = nullptr;
};
