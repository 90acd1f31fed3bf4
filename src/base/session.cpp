#include "base/session.h"

#include "base/hooks.h"
#include "base/numbers.h"
#include "base/paths.h"

#include <algorithm>

Session session;

std::string appversion()
{
    return VELMORA_VERSION;
}

void addrecent(std::string& path)
{
    path = keptname(path);
    const std::string name = nameof(path);
    auto& recent = session.recent;
    auto* known = std::find_if(recent.begin(), recent.end(), [&](const std::string& entry) {
        return nameof(entry) == name; // the name alone: a copy elsewhere takes the entry over
    });
    if (known != recent.end()) {
        *known = recent[0];
    } else {
        std::move_backward(recent.begin(), recent.end() - 1, recent.end());
        for (auto entry = recent.begin() + 1; entry != recent.end(); ++entry)
            if (!findfile(*entry))
                entry->clear();
    }
    recent[0] = path;
    hooks.recentchanged();
}

std::string recentcaption(int i)
{
    if (i < 0 || i >= static_cast<int>(session.recent.size()))
        return {};
    const std::string& path = session.recent[static_cast<std::size_t>(i)];
    return path.empty() ? std::string() : "&" + std::to_string(i + 1) + " " + nameof(path);
}

std::string maincaption()
{
    return std::string(apptitle) + " - ..\\" + nameof(session.netfile);
}
