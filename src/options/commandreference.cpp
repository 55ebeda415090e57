#include "options/commandreference.h"

#include "core/commanddispatcher.h"
#include "platform/text.h"

#include <algorithm>
#include <array>

namespace zvr {
namespace {

// A number range at the end stands for a family.
constexpr auto names = std::to_array<std::string_view>({"app.day",
                                                        "app.exit",
                                                        "app.goback",
                                                        "app.minimize",
                                                        "app.night",
                                                        "app.options",
                                                        "app.showquickjumpmenu",
                                                        "app.startfoldercopy",
                                                        "app.volumedown",
                                                        "app.volumemute",
                                                        "app.volumeup",
                                                        "dvdplayer.eject",
                                                        "dvdplayer.ffwd",
                                                        "dvdplayer.menu",
                                                        "dvdplayer.nextchapter",
                                                        "dvdplayer.pause",
                                                        "dvdplayer.play",
                                                        "dvdplayer.prevchapter",
                                                        "dvdplayer.rwnd",
                                                        "dvdplayer.show",
                                                        "dvdplayer.stop",
                                                        "dvdplayer.zoomin",
                                                        "dvdplayer.zoomout",
                                                        "externalapps.applauncher.1-5",
                                                        "externalapps.backtomainmenu",
                                                        "externalapps.listselect",
                                                        "externalapps.navigation",
                                                        "externalapps.onscreenkeyboard",
                                                        "externalapps.scrollbottom",
                                                        "externalapps.scrolldown",
                                                        "externalapps.scrollpagedown",
                                                        "externalapps.scrollpageup",
                                                        "externalapps.scrolltop",
                                                        "externalapps.scrollup",
                                                        "externalapps.show",
                                                        "externalapps.switchtorunningapp",
                                                        "gallery.imagefolder",
                                                        "gallery.listselect",
                                                        "gallery.scrollbottom",
                                                        "gallery.scrolldown",
                                                        "gallery.scrollpagedown",
                                                        "gallery.scrollpageup",
                                                        "gallery.scrolltop",
                                                        "gallery.scrollup",
                                                        "gallery.show",
                                                        "gallery.slideshowoff",
                                                        "gallery.slideshowon",
                                                        "gps.show",
                                                        "mainmenu.show",
                                                        "mediaplayer.add2playlist",
                                                        "mediaplayer.audiofolder",
                                                        "mediaplayer.ffwd",
                                                        "mediaplayer.fullscreen",
                                                        "mediaplayer.listselect",
                                                        "mediaplayer.loadaudiocd",
                                                        "mediaplayer.mode.repeat",
                                                        "mediaplayer.mode.shuffle",
                                                        "mediaplayer.next",
                                                        "mediaplayer.pause",
                                                        "mediaplayer.play",
                                                        "mediaplayer.playpausetoggle",
                                                        "mediaplayer.prev",
                                                        "mediaplayer.removefromplaylist",
                                                        "mediaplayer.rwnd",
                                                        "mediaplayer.scrollbottom",
                                                        "mediaplayer.scrolldown",
                                                        "mediaplayer.scrollpagedown",
                                                        "mediaplayer.scrollpageup",
                                                        "mediaplayer.scrolltop",
                                                        "mediaplayer.scrollup",
                                                        "mediaplayer.show",
                                                        "mediaplayer.stop",
                                                        "mediaplayer.switchlistmode",
                                                        "mediaplayer.videofolder",
                                                        "mediaplayer.volumedown",
                                                        "mediaplayer.volumemute",
                                                        "mediaplayer.volumeup",
                                                        "mediasearch.add2playlist",
                                                        "mediasearch.jump2folder",
                                                        "mediasearch.makeindex",
                                                        "mediasearch.playnow",
                                                        "mediasearch.scrollbottom",
                                                        "mediasearch.scrolldown",
                                                        "mediasearch.scrollpagedown",
                                                        "mediasearch.scrollpageup",
                                                        "mediasearch.scrolltop",
                                                        "mediasearch.scrollup",
                                                        "mediasearch.show",
                                                        "messagebox.no",
                                                        "messagebox.ok",
                                                        "messagebox.yes",
                                                        "phone.accept",
                                                        "phone.dial",
                                                        "phone.getphonebook",
                                                        "phone.hangup",
                                                        "phone.readsms",
                                                        "phone.scrollbottom",
                                                        "phone.scrolldown",
                                                        "phone.scrollpagedown",
                                                        "phone.scrollpageup",
                                                        "phone.scrolltop",
                                                        "phone.scrollup",
                                                        "phone.sendsms",
                                                        "phone.show",
                                                        "playlists.delete",
                                                        "playlists.empty",
                                                        "playlists.loadselectedplaylist",
                                                        "playlists.new",
                                                        "playlists.rename",
                                                        "playlists.scrollbottom",
                                                        "playlists.scrolldown",
                                                        "playlists.scrollpagedown",
                                                        "playlists.scrollpageup",
                                                        "playlists.scrolltop",
                                                        "playlists.scrollup",
                                                        "playlists.show",
                                                        "radio.finetune.down",
                                                        "radio.finetune.up",
                                                        "radio.frequency.0-9",
                                                        "radio.frequency.set",
                                                        "radio.mute",
                                                        "radio.show",
                                                        "radio.station.0-9",
                                                        "radio.tune.down",
                                                        "radio.tune.up",
                                                        "smsbox.close",
                                                        "smsbox.send"});

/// The reference has always had these two the wrong way round, and guides quote it.
constexpr std::string_view Swapped(std::string_view name) {
    return name == "app.volumemute" ? "app.volumeup" : name == "app.volumeup" ? "app.volumemute" : name;
}

std::string DescriptionOf(std::string_view name) {
    for (const Command& command : Commands()) {
        if (command.name == name) {
            return std::string(command.description);
        }
    }
    const std::size_t dot = name.rfind('.');
    const std::string_view front = name.substr(0, dot);
    const std::string_view last = name.substr(dot + 1);
    for (const ParameterCommand& command : ParameterCommands()) {
        if (command.name == front) {
            return std::string(command.description);
        }
    }
    for (const ScrollFamily& family : ScrollFamilies()) {
        for (const ScrollWord& word : ScrollWords()) {
            if (family.module == front && word.word == last) {
                return "Moves the " + std::string(family.description) + " " + std::string(word.description) + ".";
            }
        }
    }
    return {};
}

}  // namespace

std::vector<OptionChoice> CommandReference() {
    std::vector<OptionChoice> rows;
    for (const std::string_view name : names) {
        rows.push_back({std::string(name), std::string(name), DescriptionOf(Swapped(name))});
    }
    return rows;
}

std::vector<OptionChoice> CommandReference(std::string_view filter) {
    std::vector<OptionChoice> rows = CommandReference();
    const std::string wanted = text::Lower(filter);
    std::erase_if(rows, [&wanted](const OptionChoice& row) {
        return text::Lower(row.value + " " + row.remark).find(wanted) == std::string::npos;
    });
    return rows;
}

}  // namespace zvr
