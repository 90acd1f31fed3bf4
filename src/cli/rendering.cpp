#include "cli/command.h"
#include "cli/inputs.h"
#include "cli/options.h"
#include "cli/renderoptions.h"
#include "netoverlay/paint/overlay.h"
#include "radio/link.h"
#include "relief/paint/drawmap.h"

#include <memory>
#include <string>

namespace
{
struct RenderArguments {
    std::string file;
    CommonOptions common;
    RenderOptions render;
};

void runrender(const RenderArguments& arguments)
{
    checkfiles(arguments.render);
    prepare(arguments.common);
    startpainting();
    openmap(arguments.file);
    applyoptions(arguments.render);
    writefiles(*drawmap(nullptr, true), arguments.render);
}

struct DrawArguments {
    std::string file;
    NetworkOptions options;
    RenderOptions render;
};

void rundraw(const DrawArguments& arguments)
{
    checkfiles(arguments.render);
    prepare(arguments.options.common);
    startpainting();
    opennetwork(arguments.file, arguments.options);
    applyoptions(arguments.render);
    interf = arguments.options.mode();
    const OpenPicture& picture = *drawmap(nullptr, true);
    drawnets();
    writefiles(picture, arguments.render);
}
} // namespace

std::function<void()> setuprender(CLI::App& parser)
{
    auto arguments = std::make_shared<RenderArguments>();
    parser.add_option("MAP", arguments->file, "Map file")->required();
    addoptions(parser, arguments->render);
    addoptions(parser, arguments->common);
    parser.footer("Draws the map and writes the picture with its sidecar beside it. What has no\n"
                  "option is taken from the map.");
    return [arguments] { runrender(*arguments); };
}

std::function<void()> setupdraw(CLI::App& parser)
{
    auto arguments = std::make_shared<DrawArguments>();
    parser.add_option("NET", arguments->file, "Network file")->required();
    addoptions(parser, arguments->render);
    addoptions(parser, arguments->options);
    parser.footer(
        "Draws the network's map with its stations and links and writes the picture with\n"
        "its sidecar beside it. What has no option is taken from the map.");
    return [arguments] { rundraw(*arguments); };
}
