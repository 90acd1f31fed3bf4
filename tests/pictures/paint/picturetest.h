#pragma once

#include "base/hooks.h"
#include "base/operation.h"
#include "base/paths.h"
#include "base/session.h"
#include "netoverlay/paint/overlay.h"
#include "network/tables.h"
#include "pictures/paint/openpictures.h"
#include "relief/colours.h"
#include "relief/paint/drawmap.h"
#include "terrain/mapgrid.h"

#include <QCoreApplication>
#include <QDir>

#include <filesystem>
#include <gmock/gmock.h>
#include <string>
#include <vector>

/// A fresh program with a map of gentle hills, 60 x 40 cells over 7 to 8.5 E and 44 to 45 N, and a
/// folder of its own. Questions get the queued answers; an unexpected one fails.
class PictureTest : public testing::Test
{
protected:
    void SetUp() override
    {
        resethooks();
        picturehooks = {};
        hooks.askuser = [this](const Question& question) {
            questions.push_back(question.text);
            if (answers.empty()) {
                ADD_FAILURE() << "unexpected question: " << question.text;
                return Answer::no;
            }
            const Answer answer = answers.front();
            answers.erase(answers.begin());
            return answer;
        };
        hooks.setlabel1 = [this](const std::string& text) { label1 = text; };
        hooks.setlabel2 = [this](const std::string& text) { label2 = text; };
        std::filesystem::remove_all(folder);
        std::filesystem::create_directories(folder);
        setprogramfolder(folder);
        session = {};
        network = defaulttables();
        colours = {};
        makemap(60, 40);
        picseq = 0;
        toplevel = 0;
        connectpictures();
        connectrelief();
        connectnetoverlay();
        setcolors();
    }

    void TearDown() override
    {
        while (!openpictures.empty())
            closepicture(*openpictures.back());
        EXPECT_TRUE(answers.empty());
        picturehooks = {};
        resethooks();
        opbusy = 0;
        std::filesystem::remove_all(folder);
    }

    static void makemap(int width, int height)
    {
        mapgrid = {};
        allocatemap(mapgrid, width, height);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                mapgrid.at(x, y) = static_cast<std::int16_t>(100 + 5 * x + 3 * (y % 20));
        mapgrid.maplon = {7, 8.5F, 8.5F, 7};
        mapgrid.maplat = {45, 45, 44, 44};
        mapgrid.record.minx = 100;
        mapgrid.record.maxx = 500;
        mapgrid.record.hmin = 100;
        mapgrid.record.hmax = 500;
        mapname = "c:\\cartes\\colline.map";
    }

    /// Places an enabled station with a name.
    static Unit& station(int number, float lon, float lat, const char* name = "Poste")
    {
        Unit& unit = network.units[static_cast<std::size_t>(number)];
        unit.lon = lon;
        unit.lat = lat;
        unit.enabled = -1;
        unit.name.assign(name);
        return unit;
    }

    /// A path in the test's own folder, which has no capitals in its name.
    std::string path(const std::string& name) const { return folder + name; }

    std::string folder = QDir::temp()
                             .filePath(QString::number(QCoreApplication::applicationPid()))
                             .toLower()
                             .toStdString() +
                         "-pictures/";
    std::vector<Answer> answers;
    std::vector<std::string> questions;
    std::string label1, label2;
};
