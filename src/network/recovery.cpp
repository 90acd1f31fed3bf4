#include "network/recovery.h"

#include "base/bytes.h"
#include "base/hooks.h"
#include "base/paths.h"
#include "base/processmark.h"
#include "base/session.h"
#include "network/unsaved.h"
#include "terrain/mapfile.h"

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <utility>

namespace fs = std::filesystem;

/// Last bytes of a recovery copy; before them stand the path and its length.
static constexpr std::string_view endmark = "VELMREC1";

std::string recoverybytes(const NetworkTables& tables, const std::string& map,
                          const std::vector<std::string>& pictures, const std::string& netfile)
{
    ByteWriter writer;
    const std::string net = netbytes(tables, map, pictures);
    writer.writeblock(net.data(), net.size());
    writer.writeblock(netfile.data(), netfile.size());
    writer.write(static_cast<std::uint32_t>(netfile.size()));
    writer.writeblock(endmark.data(), endmark.size());
    return writer.data();
}

static constexpr std::string_view firstpart = "net-";
static constexpr std::string_view lastpart = ".net";

std::string recoveryname()
{
    return std::string(firstpart) + processmark() + std::string(lastpart);
}

bool isleftcopy(std::string_view name)
{
    if (!name.starts_with(firstpart) || !name.ends_with(lastpart) ||
        name.size() < firstpart.size() + lastpart.size())
        return false;
    name.remove_prefix(firstpart.size());
    name.remove_suffix(lastpart.size());
    return markofdead(name);
}

static int placedstations(const NetworkTables& tables)
{
    int count = 0;
    for (const Unit& unit : tables.units)
        count += unit.placed() ? 1 : 0;
    return count;
}

std::optional<RecoveredNet> parserecovery(std::span<const std::byte> bytes)
{
    constexpr std::size_t tail = sizeof(std::uint32_t) + endmark.size();
    if (bytes.size() < tail)
        return std::nullopt;
    const std::string_view text(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    std::uint32_t length = 0;
    ByteReader(bytes.last(tail)).read(length);
    if (!text.ends_with(endmark) || length > bytes.size() - tail)
        return std::nullopt;
    const std::size_t netsize = bytes.size() - tail - length;
    NetworkTables tables = defaulttables();
    NetFile file;
    if (parsenet(bytes.first(netsize), tables, file) != NetStatus::ok || file.older)
        return std::nullopt;
    return RecoveredNet{std::string(text.substr(netsize, length)),
                        std::string(text.substr(0, netsize)), placedstations(tables)};
}

/// True where the network's own file begins with what the copy holds.
static bool alreadysaved(const RecoveredNet& net)
{
    const auto found = findfile(net.netfile);
    const auto content = found ? readfile(*found, net.bytes.size()) : std::nullopt;
    return content == net.bytes;
}

static std::time_t writtenat(const fs::path& file)
{
    std::error_code error;
    const auto when = std::chrono::file_clock::to_sys(fs::last_write_time(file, error));
    return error ? 0
                 : std::chrono::system_clock::to_time_t(
                       std::chrono::time_point_cast<std::chrono::system_clock::duration>(when));
}

/// Reads a copy that was left, or removes what says nothing.
static std::optional<LeftCopy> takecopy(const fs::path& file)
{
    constexpr std::size_t largest = 16 << 20; // many times what a network takes
    const auto content = readfile(file.string(), largest);
    if (!content)
        return std::nullopt;
    auto net = parserecovery(asbytes(*content));
    if (net && !alreadysaved(*net))
        return LeftCopy{file.string(), writtenat(file), std::move(*net)};
    std::error_code error; // one that stays is met again at the next start
    fs::remove(file, error);
    return std::nullopt;
}

static std::vector<fs::path> filesin(const std::string& folder)
{
    std::vector<fs::path> files;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error))
        files.push_back(entry->path());
    return files;
}

std::vector<LeftCopy> leftcopies(const std::string& folder)
{
    std::vector<LeftCopy> copies;
    for (const fs::path& file : filesin(folder)) {
        if (!isleftcopy(file.filename().string()))
            continue;
        if (auto copy = takecopy(file))
            copies.push_back(std::move(*copy));
    }
    std::ranges::sort(copies, std::greater<>(), &LeftCopy::saved);
    return copies;
}

RecoveryKeeper::RecoveryKeeper(std::string folder) : file(std::move(folder) + recoveryname()) {}

RecoveryKeeper::~RecoveryKeeper()
{
    finish();
}

/// True while the other thread writes.
bool RecoveryKeeper::busy()
{
    if (writing.valid() && writing.wait_for(std::chrono::seconds(0)) == std::future_status::ready)
        finish();
    return writing.valid();
}

void RecoveryKeeper::finish()
{
    if (!writing.valid())
        return;
    lastfailed = !writing.get();
    if (lastfailed)
        content.clear(); // the next look tries again
}

/// Has the other thread write what the tables hold; false where the copy holds it already.
bool RecoveryKeeper::start()
{
    std::string now = recoverybytes(network, mapname, hooks.openpictures(), session.netfile);
    if (now == content)
        return false;
    content = std::move(now);
    writing = std::async(std::launch::async, [path = file, bytes = content] {
        std::error_code error; // shows when the file is written
        fs::create_directories(fs::path(path).parent_path(), error);
        return writefile(path, bytes);
    });
    return true;
}

bool RecoveryKeeper::step(double now_s, bool quiet)
{
    if (!netunsaved()) {
        drop();
        return false;
    }
    if (!looked_s)
        looked_s = now_s;
    const double since_s = now_s - *looked_s;
    if (busy() || since_s < (quiet ? quietdelay_s : longestdelay_s))
        return false;
    looked_s = now_s;
    return start();
}

bool RecoveryKeeper::writenow()
{
    finish();
    if (netunsaved())
        start();
    finish();
    return !lastfailed;
}

void RecoveryKeeper::drop()
{
    finish();
    looked_s.reset();
    lastfailed = false;
    if (content.empty())
        return;
    content.clear();
    std::error_code
        error; // it is met again at the next start, which finds it in the network's file
    fs::remove(file, error);
}
