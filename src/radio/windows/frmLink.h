#pragma once

#include "radio/linkstudy.h"

#include <QColor>
#include <QDialog>

#include <array>
#include <functional>
#include <string>

class LinkView;
class QActionGroup;
class QComboBox;
class QLayout;
class QMenu;
class SMeter;
class StationColumn;

/// Entries of the link window's view menu, in its order.
enum class LinkGraph { profile, invert, details, range, distribution };

/// What the link window asks of the rooms above.
struct LinkWindowHooks {
    /// Asks for the name of a text file to write; empty when the user gives up.
    std::function<std::string(const std::string& offered)> asktextfile;
    /// Draws a link of two stations over the pictures, in the colour of its quality.
    std::function<void(int a, int b, const QColor& colour)> showlink = [](int, int, const QColor&) {
    };
    /// Takes the geographic cursor to a place, degrees.
    std::function<void(float lon, float lat)> movecursor = [](float, float) {};
    /// The window closes: its one link need not stand alone on the pictures any longer.
    std::function<void()> closed = [] {};
};
extern LinkWindowHooks linkwindowhooks;

/// "Lien radio": one link studied in depth, by its profile, its texts, its range, and the
/// distribution of its signal.
class frmLink : public QDialog
{
    Q_OBJECT

public:
    explicit frmLink(QWidget* parent = nullptr);

    /// Chooses both stations, as the user would.
    void choosestations(int a, int b);
    /// Another network is in the tables: its names, and no link that was studied in the old one.
    void refill();
    /// Studies the link in view again, in the graph in view, and leaves the pictures alone.
    void restudy();
    /// The tables hold other values of the same network: its names and nets, and the link in view
    /// studied again.
    void followtables();
    /// A station has another place: a link that it belongs to is studied again.
    void followstation(int unit);
    /// Into (true) or out of the state in which only Stop is live.
    void setbusy(bool on);

    /// Entries of "&Affichage".
    void showprofile();
    void invert();
    void showdetails();
    void showrange();
    void showdistribution();
    /// Entries of "&Edition".
    void copy();
    void exportlink();

    const LinkStudy& current() const { return shown; }
    void reject() override;

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void makemenus();
    void makeviewmenu(QMenu& menu);
    QLayout* makelists();
    QLayout* makecolumns();
    void place();

    void changestations();
    QAction& actionof(LinkGraph graph) const;
    void mark(LinkGraph graph);
    void study(const std::function<void()>& show);
    void drawprofile();
    bool chosen() const;
    int transmitter() const;
    int receiver() const;
    int chosennet() const;
    void fillnets();
    void fillcolumns();
    void applyheight(bool left, const QString& typed);
    bool writeprofile(const std::string& name) const;

    void showcursor(double x, bool pressed);
    void hidecursor();
    void resetmeters();

    QComboBox *transmitterlist, *receiverlist, *netlist;
    StationColumn *leftcolumn, *rightcolumn;
    std::array<SMeter*, 2> meters; ///< 0 the direction of `gain21`, 1 that of `gain12`
    LinkView* view;
    QActionGroup* graphs;
    QMenu *editmenu, *viewmenu;
    QAction* stop;
    LinkStudy shown;
    LinkGraph inview = LinkGraph::profile;
    double cursorx = 0; ///< samples from the left station
    bool cursorshown = false;
};

/// Mode of propagation and default heights of the run, for the study of a link.
AnalysisOptions linkoptions();

/// Opens the window, or brings it to the front.
frmLink* showlink(QWidget* parent);
/// The window that is open; nullptr when there is none.
frmLink* linkwindow(const QWidget* parent);
