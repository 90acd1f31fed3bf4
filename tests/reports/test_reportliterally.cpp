// The matrices of random networks on hills, from evaluation to text, against a literal reading of
// their rules: private antenna heights in every net, frequencies where the scale of the S-meter
// changes, all topologies and scales.

#include "base/numbers.h"
#include "radio/evaluate.h"
#include "radio/link.h"
#include "radio/scene.h"
#include "reports/netreport.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
/// A line that grows by moves to a column counted from 1.
struct Line {
    std::string text;
    int column = 1;

    void put(const std::string& piece)
    {
        text += piece;
        column += static_cast<int>(piece.size());
    }
    void tab(int to, const std::string& piece)
    {
        if (to > column)
            put(std::string(static_cast<std::size_t>(to - column), ' '));
        put(piece);
    }
};

std::string cell(const QualityTable& table, const Net& net, int n, int a, int b, int scale)
{
    const int low = a < b ? a : b;
    const int high = a < b ? b : a;
    const int q = table.at(n, low, high);
    if (q == 0)
        return "";
    if (scale == 1 && (net.topology & 255) != 1)
        return formatnumber("00", table.at(n, high, low));
    if (scale != 2)
        return formatnumber("00", q);
    const double f = (double{net.fmin} + double{net.fmax}) * 0.5;
    const int s = sunits(static_cast<float>(q - 50), static_cast<float>(f));
    return s < 10 ? formatnumber("0", s) + "S" : formatnumber("00", s);
}

/// Every row of a net's matrix: number, cells, role, antenna height, system.
std::vector<std::string> rowsof(const NetworkTables& tables, const QualityTable& table, int n,
                                int scale)
{
    const char* const roles[3][3] = {
        {"Commande", "Subordonné", "Relais"}, {"Maître", "Esclave", ""}, {"Node", "Terminal", ""}};
    const Net& net = tables.nets[static_cast<std::size_t>(n)];
    std::vector<int> members;
    for (int u = 1; u <= MAXUNIT; ++u)
        if (tables.units[static_cast<std::size_t>(u)].enabled != 0 &&
            net.member[static_cast<std::size_t>(u)] >= 128)
            members.push_back(u);
    const int c = static_cast<int>(members.size());
    std::vector<std::string> rows;
    for (int k = 1; k <= c; ++k) {
        const auto u = static_cast<std::size_t>(members[static_cast<std::size_t>(k - 1)]);
        const auto slot = net.system[u];
        Line line;
        line.tab(28, formatnumber("00", k));
        for (int m = 1; m <= c; ++m) {
            const std::string text = m == k ? ""
                                            : cell(table, net, n, static_cast<int>(u),
                                                   members[static_cast<std::size_t>(m - 1)], scale);
            if (!text.empty())
                line.tab(3 * m + 28, text);
        }
        const float own = tables.antheights[static_cast<std::size_t>(n)][u];
        const float height = own != 0 ? own : tables.systems[slot].height;
        const std::string role = roles[net.topology & 255][net.member[u] & 127];
        line.tab(3 * (c + 1) + 29, "");
        line.text += role;
        line.column += static_cast<int>(charactercount(role));
        line.tab(3 * (c + 1) + 42, formatnumber("0.0m", double{height}));
        line.tab(3 * (c + 1) + 52, tables.systems[slot].name.text());
        rows.push_back(line.text);
    }
    return rows;
}

NetworkTables lowbandnetwork(const MapGrid& map, unsigned seed)
{
    NetworkTables tables = scene::randomnetwork(map, seed);
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> frequency(20, 40);
    for (std::size_t n = 1; n <= MAXNET; ++n) {
        tables.nets[n].fmin = frequency(random);
        tables.nets[n].fmax = tables.nets[n].fmin + 10;
        tables.nets[n].topology = static_cast<std::int16_t>(256 + static_cast<int>(n) % 3);
    }
    for (std::size_t i = 1; i <= MAXSYSTEM; ++i)
        tables.systems[i].name.assign("Poste " + std::to_string(i));
    return tables;
}
} // namespace

TEST(ReportLiterally, EveryCellHeightAndRoleIsThatOfTheRules)
{
    std::size_t cells = 0;
    for (unsigned seed = 1; seed <= 4; ++seed) {
        const MapGrid map = scene::hillymap(90, 70, seed);
        const NetworkTables tables = lowbandnetwork(map, seed);
        QualityTable table;
        evaluate(tables, map, true, 0, table);
        const ReportSources sources{&tables, &map, &table, "a.net", "a.map", false};
        for (int scale = 0; scale <= 2; ++scale)
            for (int n = 1; n <= MAXNET; ++n) {
                const std::string text = reporttext(netreportlines(
                    sources, n, n, static_cast<ReportScale>(scale), ReportTarget::file));
                for (const std::string& row : rowsof(tables, table, n, scale)) {
                    EXPECT_THAT(text, testing::HasSubstr(row.substr(27) + "\r\n"))
                        << "net " << n << ", scale " << scale << ", seed " << seed;
                    cells += row.size();
                }
            }
    }
    EXPECT_GT(cells, 100000U) << "the networks have members";
}
