#include "apps/externalapps.h"
#include "core/commanddispatcher.h"
#include "core/dialogqueue.h"
#include "core/endofprogram.h"
#include "core/godfather.h"
#include "core/mainmenu.h"
#include "core/messagebox.h"
#include "core/numbers.h"
#include "core/program.h"
#include "core/quickjump.h"
#include "core/settings.h"
#include "media/dvdplayer.h"
#include "media/gallery.h"
#include "media/mediaplayer.h"
#include "media/mediasearch.h"
#include "media/playlists.h"
#include "options/options.h"
#include "phone/phone.h"
#include "phone/smsbox.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "radiogps/gps.h"
#include "radiogps/radio.h"
#include "system/clsvolume.h"
#include "system/fsoperation.h"
#include "system/playervolume.h"
#include "system/sysvolume.h"
#include "ui/stage.h"

#include <algorithm>
#include <array>
#include <optional>

namespace zvr {
namespace {

using P = Program;

// The whole language of the program: what a button, a function key or a quick jump entry can name.
constexpr auto commandRows = std::to_array<Command>({
    {"mainmenu.show", [](P& p) { p.stage.Front(p.mainmenu.form); }, "Shows the main menu."},
    {"mediaplayer.show", [](P& p) { p.stage.Front(p.mediaplayer.form, p.mediaplayer.medialist); },
     "Shows the media player."},
    {"playlists.show", [](P& p) { p.stage.Front(p.playlists.form); }, "Shows the playlists."},
    {"mediasearch.show", [](P& p) { p.stage.Front(p.mediasearch.form, p.mediasearch.txtSearchTerm); },
     "Shows the media search."},
    {"dvdplayer.show", [](P& p) { p.stage.Front(p.dvdplayer.form); }, "Shows the DVD player."},
    {"phone.show", [](P& p) { p.stage.Front(p.phone.form, p.phone.phonebooklist); }, "Shows the phone."},
    {"radio.show", [](P& p) { p.stage.Front(p.radio.form); }, "Shows the radio."},
    {"gallery.show", [](P& p) { p.stage.Front(p.gallery.form, p.gallery.imglist); }, "Shows the gallery."},
    {"externalapps.show", [](P& p) { p.stage.Front(p.externalapps.form, p.externalapps.applist); },
     "Shows the list of other programs."},
    {"gps.show", [](P& p) { p.stage.Front(p.gps.form); }, "Shows the GPS information."},

    {"app.exit", [](P& p) { ExitByCommand(p); }, "Ends the program, in the way that the settings say."},
    {"app.day", [](P& p) { p.godfather.applyDayNight(true, false, false); },
     "Switch the graphics boards brightness to the configured day-setting."},
    {"app.night", [](P& p) { p.godfather.applyDayNight(false, false, false); },
     "Switch the graphics boards brightness to the configured night-setting."},
    {"app.goback", [](P& p) { p.commanddispatcher.goBack(); }, "Goes back to the screen before."},
    {"app.minimize", [](P& p) { p.platform.screen.SetRootState(WindowState::minimized); },
     "Minimises the program's window."},
    {"app.startfoldercopy", [](P& p) { p.fsoperation.StartFolderCopy(); }, "Copies the folders that the settings name."},
    {"app.options", [](P& p) { p.options.Show(); }, "Shows the settings."},
    {"app.showquickjumpmenu", [](P& p) { p.quickjump.showQuickJump(); },
     "Shows the popup quickjump menu with userdefined zVR commands."},
    {"app.volumemute", [](P& p) { p.mixerLines.SetWaveInMute(!p.mixerLines.WaveInMute()); },
     "Mute the wave channel."},
    {"app.volumeup", [](P& p) { p.playervolume.ChangeWaveVolume(p.sysvolume.volStepping); }, "Increase system's wave volume.", Acts::onPressAndRepeats},
    {"app.volumedown", [](P& p) { p.playervolume.ChangeWaveVolume(-p.sysvolume.volStepping); },
     "Master volume one step down.", Acts::onPressAndRepeats},

    {"messagebox.ok", [](P& p) { p.messagebox.Answer("ok"); }, "Answers a message with OK."},
    {"messagebox.yes", [](P& p) { p.messagebox.Answer("yes"); }, "Answers a question with yes."},
    {"messagebox.no", [](P& p) { p.messagebox.Answer("no"); }, "Answers a question with no."},

    {"mediaplayer.listselect", [](P& p) { p.mediaplayer.ListSelect(); }, "Plays or opens the selected row."},
    {"mediaplayer.play", [](P& p) { p.mediaplayer.Play(); }, "Plays."},
    {"mediaplayer.stop", [](P& p) { p.mediaplayer.Stop(); }, "Stops."},
    {"mediaplayer.pause", [](P& p) { p.mediaplayer.Pause(); }, "Pauses."},
    {"mediaplayer.playpausetoggle", [](P& p) { p.mediaplayer.PlayPauseToggle(); }, "Pauses, or plays on."},
    {"mediaplayer.ffwd", [](P& p) { p.mediaplayer.SkipForward(); }, "Starts the fast forward."},
    {"mediaplayer.rwnd", [](P& p) { p.mediaplayer.SkipBackward(); }, "Starts the rewind."},
    {"mediaplayer.prev", [](P& p) { p.mediaplayer.Previous(); }, "Goes to the item before."},
    {"mediaplayer.next", [](P& p) { p.mediaplayer.Next(); }, "Goes to the next item."},
    {"mediaplayer.mode.repeat", [](P& p) { p.mediaplayer.SetShuffle(false); }, "Plays in order."},
    {"mediaplayer.mode.shuffle", [](P& p) { p.mediaplayer.SetShuffle(true); }, "Plays in random order."},
    {"mediaplayer.loadaudiocd", [](P& p) { p.mediaplayer.LoadAudioCd(); }, "Plays the disc in the drive."},
    {"mediaplayer.volumemute", [](P& p) { p.mediaplayer.VolumeMute(); }, "Mutes the player, or ends the mute."},
    {"mediaplayer.volumeup", [](P& p) { p.playervolume.ChangeMediaVolume(p.sysvolume.volStepping); }, "Player volume one step up.", Acts::onPressAndRepeats},
    {"mediaplayer.volumedown", [](P& p) { p.playervolume.ChangeMediaVolume(-p.sysvolume.volStepping); }, "Player volume one step down.", Acts::onPressAndRepeats},
    {"mediaplayer.fullscreen", [](P& p) { p.mediaplayer.ToggleFullscreen(true); },
     "Shows the video or the cover on the whole screen."},
    {"mediaplayer.switchlistmode",
     [](P& p) {
         p.mediaplayer.currentSkipMode = 0;
         p.mediaplayer.SwitchListMode();
     },
     "Changes between the folder and the playlist."},
    {"mediaplayer.add2playlist", [](P& p) { p.mediaplayer.AddSelection2Playlist(); },
     "Adds the selected row to the playlist."},
    {"mediaplayer.removefromplaylist", [](P& p) { p.mediaplayer.RemoveSelectionFromPlaylist(); },
     "Removes the selected row from the playlist."},
    {"mediaplayer.audiofolder", [](P& p) { p.mediaplayer.ReadDirectory(p.mediaplayer.audioFolder); },
     "Shows the audio folder."},
    {"mediaplayer.videofolder", [](P& p) { p.mediaplayer.ReadDirectory(p.mediaplayer.videoFolder); },
     "Shows the video folder."},

    {"playlists.loadselectedplaylist", [](P& p) { p.playlists.LoadSelectedPlaylist(); },
     "Shows the selected playlist in the media player."},
    {"playlists.rename", [](P& p) { p.playlists.RenamePlaylist(); }, "Gives the selected playlist the typed name."},
    {"playlists.new", [](P& p) { p.playlists.CreateNewPlaylistFromTextbox(); }, "Makes a playlist of the typed name."},
    {"playlists.empty", [](P& p) { p.playlists.EmptySelectedPlaylist(); }, "Empties the selected playlist."},
    {"playlists.delete", [](P& p) { p.playlists.DeleteSelectedPlaylist(); }, "Deletes the selected playlist."},

    {"externalapps.listselect", [](P& p) { p.externalapps.StartSelectedProgram(false); }, "Starts the selected program."},
    {"externalapps.navigation", [](P& p) { p.externalapps.StartSelectedProgram(true); }, "Starts the navigation."},
    {"externalapps.switchtorunningapp", [](P& p) { p.externalapps.SwitchToRunningApp(-1); },
     "Goes back to the program that runs."},
    {"externalapps.taskswitch", [](P& p) { p.externalapps.SwitchTask(); }, "Goes to the next program that runs."},
    {"externalapps.onscreenkeyboard", [](P& p) { p.externalapps.ShowOSK(); }, "Shows the on-screen keyboard."},
    {"externalapps.backtomainmenu", [](P& p) { p.externalapps.BackToMainMenu(); },
     "Shows the main menu; the programs run on."},

    {"radio.tune.up", [](P& p) { p.radio.SetFreq(p.radio.currentFreq + p.radio.radioTuningStep); },
     "Tunes the radio one step up."},
    {"radio.tune.down", [](P& p) { p.radio.SetFreq(p.radio.currentFreq - p.radio.radioTuningStep); },
     "Tunes the radio one step down."},
    {"radio.finetune.up", [](P& p) { p.radio.SetFreq(p.radio.currentFreq + p.radio.radioFineTuningStep); },
     "Tunes the radio one fine step up."},
    {"radio.finetune.down", [](P& p) { p.radio.SetFreq(p.radio.currentFreq - p.radio.radioFineTuningStep); },
     "Tunes the radio one fine step down."},
    {"radio.mute", [](P& p) { p.radio.SwitchMute(); }, "Switches the sound of the radio on or off."},
    {"radio.frequency.set", [](P& p) { p.radio.freqKey(-1); }, "Tunes the radio to what was typed."},

    {"dvdplayer.play", [](P& p) { p.dvdplayer.DvdPlay(); }, "Plays the disc of the configured drive, or ends its fast play."},
    {"dvdplayer.stop", [](P& p) { p.dvdplayer.DvdStop(); }, "Stops the disc."},
    {"dvdplayer.pause", [](P& p) { p.dvdplayer.DvdPause(); }, "Pauses the disc."},
    {"dvdplayer.ffwd", [](P& p) { p.dvdplayer.DvdFfwd(); }, "Plays the disc at double speed."},
    {"dvdplayer.rwnd", [](P& p) { p.dvdplayer.DvdRwnd(); }, "Plays the disc backwards."},
    {"dvdplayer.nextchapter", [](P& p) { p.dvdplayer.DvdNextChapter(); }, "Goes to the next chapter."},
    {"dvdplayer.prevchapter", [](P& p) { p.dvdplayer.DvdPrevChapter(); }, "Goes to the previous chapter."},
    {"dvdplayer.zoomin", [](P& p) { p.dvdplayer.DvdZoomIn(); }, "Doubles the size of the film's picture."},
    {"dvdplayer.zoomout", [](P& p) { p.dvdplayer.DvdZoomOut(); }, "Halves it again."},
    {"dvdplayer.menu", [](P& p) { p.dvdplayer.DvdMenu(); }, "Shows the disc's menu."},
    {"dvdplayer.eject", [](P& p) { p.dvdplayer.DvdEject(); }, "Ejects the disc of the configured cd/dvd drive."},

    {"gallery.imagefolder", [](P& p) { p.gallery.ReadDirectory(p.gallery.imageFolder); },
     "Shows the folder of pictures that the settings name."},
    {"gallery.listselect", [](P& p) { p.gallery.SelectByHand(); }, "Shows the selected picture or folder."},
    {"gallery.slideshowon", [](P& p) { p.gallery.SlideshowOn(); }, "Starts the slideshow."},
    {"gallery.slideshowoff", [](P& p) { p.gallery.SlideshowOff(); }, "Ends the slideshow."},

    {"mediasearch.makeindex", [](P& p) { p.mediasearch.CreateIndex(); }, "Makes the index of the media search anew."},
    {"mediasearch.playnow", [](P& p) { p.mediasearch.PlaySelectedSearchresult(false); },
     "Plays the selected search result, or shows it if it is a folder."},
    {"mediasearch.jump2folder", [](P& p) { p.mediasearch.PlaySelectedSearchresult(true); },
     "Shows the folder of the selected search result in the media player."},
    {"mediasearch.add2playlist", [](P& p) { p.mediasearch.AddSelectedSearchresult2Playlist(); },
     "Adds the selected search result to the current playlist."},

    {"phone.accept", [](P& p) { p.phone.AcceptCall(); }, "Accepts the incoming call."},
    {"phone.hangup", [](P& p) { p.phone.HangupCall(); }, "Hangs up, and plays on what the call has paused."},
    {"phone.getphonebook", [](P& p) { p.phone.GetPhonebook(); }, "Reads the phone book anew."},
    {"phone.sendsms", [](P& p) { p.phone.SendSMS({}); }, "Writes a text message to the number in the number box."},
    {"phone.dial", [](P& p) { p.phone.DialNumber(); }, "Dials the number in the number box."},
    {"phone.readsms", [](P& p) { p.phone.GetSMS(); }, "Shows the oldest text message that was not read yet."},

    {"smsbox.send", [](P& p) { p.smsbox.Send(); }, "Sends the message that was written; answers the one that was read."},
    {"smsbox.close", [](P& p) { p.dialogs.Settle(p.smsbox.form, ""); }, "Closes the message writer."},
});

constexpr bool HasNoDuplicates() {
    for (std::size_t i = 0; i < commandRows.size(); ++i) {
        for (std::size_t j = i + 1; j < commandRows.size(); ++j) {
            if (commandRows[i].name == commandRows[j].name) {
                return false;
            }
        }
    }
    return true;
}
static_assert(HasNoDuplicates(), "a command stands twice");

/// The first character of what is to be typed; empty if that is none to type.
std::string_view CharacterToType(std::string_view parameter) {
    const std::string_view character = text::Mid(parameter, 0, 1);
    const bool isControl = character.size() == 1 && static_cast<unsigned char>(character[0]) < 32;
    return isControl ? std::string_view() : character;
}

bool TypeIntoSearchBox(Program& program, std::string_view parameter) {
    if (parameter == "clear") {
        program.mediasearch.ClearSearchTerm();
        return true;
    }
    const std::string_view character = CharacterToType(parameter);
    if (!character.empty()) {
        program.mediasearch.TypeCharacter(character);
    }
    return !character.empty();
}

bool TypeIntoNumberBox(Program& program, std::string_view parameter) {
    if (parameter == "back") {
        program.phone.numberbox->TakeBack();
        return true;
    }
    const std::string_view character = CharacterToType(parameter);
    if (!character.empty()) {
        program.phone.TypeCharacter(character);
    }
    return !character.empty();
}

bool RunLauncher(Program& program, std::string_view parameter) {
    const std::array<std::string, 5>& commands = program.externalapps.appLauncherCommands;
    if (parameter.size() != 1 || parameter[0] < '1' || parameter[0] > '5') {
        return false;
    }
    const std::string command = commands[static_cast<std::size_t>(parameter[0] - '1')];
    program.externalappsctl.RunLauncherCommand(command, false);
    return true;
}

/// The digit that a last word names; a word without any counts as 0. None for other numbers.
std::optional<int> DigitOf(std::string_view word) {
    const long number = RoundHalfEven(LeadingNumber(word));
    return number >= 0 && number <= 9 ? std::optional(static_cast<int>(number)) : std::nullopt;
}

bool RecallStation(Program& program, std::string_view parameter) {
    const auto station = DigitOf(parameter);
    if (station) {
        program.radio.SetFreq(program.radio.getRadioStation(*station));
    }
    return station.has_value();
}

bool TypeFrequency(Program& program, std::string_view parameter) {
    const auto digit = DigitOf(parameter);
    if (digit) {
        program.radio.freqKey(*digit);
    }
    return digit.has_value();
}

constexpr auto parameterRows = std::to_array<ParameterCommand>({
    {"externalapps.applauncher", RunLauncher, "Starts the command line of that launcher button, 1 to 5."},
    {"mediasearch.text", TypeIntoSearchBox, "Types the character into the search box; \"clear\" empties it."},
    {"radio.station", RecallStation,
     "Tunes the radio to a station, 0 to 9. Two seconds on its button store the station."},
    {"radio.frequency", TypeFrequency, "Types a digit of a frequency, 0 to 9."},
    {"phone.text", TypeIntoNumberBox, "Types the character into the number box; \"back\" takes one away."},
});

constexpr auto scrollRows = std::to_array<ScrollFamily>({
    {"mediaplayer", [](P& p) { return p.mediaplayer.medialist; }, nullptr, "media list"},
    {"playlists", [](P& p) { return p.playlists.playlistlist; }, [](P& p) { p.playlists.ShowSelectedName(); },
     "list of playlists"},
    {"mediasearch", [](P& p) { return p.mediasearch.resultlist; }, nullptr, "search results"},
    {"gallery", [](P& p) { return p.gallery.imglist; }, nullptr, "list of pictures"},
    {"externalapps", [](P& p) { return p.externalapps.applist; }, nullptr, "list of programs"},
    {"phone", [](P& p) { return p.phone.phonebooklist; }, nullptr, "phone book"},
});

constexpr auto scrollWordRows = std::to_array<ScrollWord>({
    {"scrolltop", "to its first row"},
    {"scrollbottom", "to its last row"},
    {"scrollpageup", "one page up"},
    {"scrollpagedown", "one page down"},
    {"scrollup", "one row up"},
    {"scrolldown", "one row down"},
});

}  // namespace

std::span<const Command> Commands() {
    return commandRows;
}

std::span<const ParameterCommand> ParameterCommands() {
    return parameterRows;
}

std::span<const ScrollFamily> ScrollFamilies() {
    return scrollRows;
}

std::span<const ScrollWord> ScrollWords() {
    return scrollWordRows;
}

}  // namespace zvr
