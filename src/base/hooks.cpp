#include "base/hooks.h"

Hooks hooks;

static Answer cautiousanswer(const Question& question)
{
    switch (question.buttons) {
    case Question::Buttons::yesno:
    case Question::Buttons::yesnocancel:
        return Answer::no;
    case Question::Buttons::abortretryignore:
        return Answer::ignore;
    case Question::Buttons::ok:
        break;
    }
    return Answer::ok;
}

Hooks::Hooks()
    : askuser(cautiousanswer), pumpevents([] {}), busypointer([](bool) {}),
      setlabel1([](const std::string&) {}), setlabel2([](const std::string&) {}),
      screensize([] { return std::pair(1024, 768); }), recentchanged([] {}),
      setbusyinterface([](bool) {}), setprogress([](int) {}), erasenets([] {}),
      openpicture([](const std::string&, int) {}),
      openpictures([] { return std::vector<std::string>(); }),
      placepicture([](const std::string&, const float*, const float*) {}),
      drawmap([](const std::string&) {}), mapchanged([] {}), netreplaced([] {}), netsloaded([] {}),
      unitmoved([](int) {}), writerecovery([] {}), attributeslost([](const std::string&) {}),
      viewtext([](const std::string&) {})
{
}

void resethooks()
{
    hooks = Hooks();
}

void telluser(const std::string& text)
{
    hooks.askuser({text, Question::Buttons::ok, Question::Icon::exclamation});
}
