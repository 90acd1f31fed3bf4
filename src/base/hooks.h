#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <utility>
#include <vector>

/// What the user is asked, or told, in a modal box under the program's title.
struct Question {
    enum class Buttons { ok, yesno, yesnocancel, abortretryignore };
    enum class Icon { question, exclamation };
    std::string text; ///< UTF-8, in the user's language
    Buttons buttons = Buttons::ok;
    Icon icon = Icon::exclamation;
};

enum class Answer { ok, yes, no, cancel, abort, retry, ignore };

/// Calls from the logic up to the windows. Each has a harmless default, so that the logic runs
/// unchanged in a test or in velmora-cli; the desktop program fills them when it starts.
struct Hooks {
    /// Asks and waits. Default: the cautious answer (no, ignore, or ok), so that nothing is lost.
    std::function<Answer(const Question&)> askuser;
    /// Handles pending window events once.
    std::function<void()> pumpevents;
    /// Shows the busy pointer (true) or the normal one.
    std::function<void(bool)> busypointer;
    /// The status texts of the main window: first the position, the percentage or "Prêt", second
    /// what an operation says.
    std::function<void(const std::string&)> setlabel1;
    std::function<void(const std::string&)> setlabel2;
    /// The screen's size in pixels. Default: 1024 x 768.
    std::function<std::pair<int, int>()> screensize;
    /// Recent files or the network's name changed: menu entries and caption must follow.
    std::function<void()> recentchanged;
    /// The interface goes into (true) or out of the state in which only Stop is live.
    std::function<void(bool)> setbusyinterface;
    /// The progress bar: percent 1 to 100, or 0 to hide it.
    std::function<void(int)> setprogress;
    /// Removes the network overlay from all pictures.
    std::function<void()> erasenets;
    /// Opens a picture by name; the second argument is the requested kind.
    std::function<void(const std::string&, int)> openpicture;
    /// File names of the open pictures, trimmed and in lower case, without the world map.
    std::function<std::vector<std::string>()> openpictures;
    /// Corners of a picture that belongs to a map of the older format: its name, then the corners.
    std::function<void(const std::string&, const float* lon, const float* lat)> placepicture;
    /// A map was built: the picture of this name is drawn from it, opened where it is not open.
    std::function<void(const std::string&)> drawmap;
    /// A map was read or built: the colour scale must follow.
    std::function<void()> mapchanged;
    /// Other tables stand in place of the network that was there: nothing of it can be taken back.
    std::function<void()> netreplaced;
    /// A network was read: its links must be evaluated.
    std::function<void()> netsloaded;
    /// A station was moved by itself, without its links: it is drawn alone.
    std::function<void(int unit)> unitmoved;
    /// The system ends the program: what is unsaved must be kept, as the user can't be asked.
    std::function<void()> writerecovery;
    /// A file of this path was written, but could not keep all of its owner, rights and names.
    std::function<void(const std::string& path)> attributeslost;
    /// Opens a text file in the desktop's own viewer.
    std::function<void(const std::string& path)> viewtext;

    Hooks();
};

extern Hooks hooks;

/// Restores the harmless defaults (tests call it between cases).
void resethooks();

/// Shows a message with the exclamation icon and one OK button.
void telluser(const std::string& text);
