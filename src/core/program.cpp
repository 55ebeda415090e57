#include "core/program.h"

namespace zvr {

Program::Program(Platform& platform, ProgramPlace place)
    : platform(platform),
      place(std::move(place)),
      stage(platform.loop),
      godfather(*this),
      commanddispatcher(*this),
      tick(*this),
      skinner(*this),
      messagebox(*this),
      quickjump(*this),
      askforshutdown(*this),
      mainmenu(*this),
      mediaplayer(*this),
      mixerLines(platform.mixer),
      sysvolume(platform.mixer, mixerLines, mediaplayer.wmp),
      gamma(platform.display, this->place.folder),
      playlists(*this),
      mediasearch(*this),
      dvdplayer(*this),
      gallery(*this),
      externalapps(*this),
      quickbars(*this),
      phone(*this),
      smsbox(*this),
      radio(*this),
      gps(*this),
      remoteControl(*this),
      splash(*this),
      moduleForms{&quickbars.docked, &quickbars.floating, &messagebox.form, &radio.form,        &smsbox.form,
                  &dvdplayer.form,   &mainmenu.form,      &gps.form,        &externalapps.form, &playlists.form,
                  &mediasearch.form, &phone.form,         &gallery.form,    &mediaplayer.form} {}

Program::~Program() {
    platform.screen.Close();
    platform.server.Close();
}

void Program::dispatchCommand(std::string_view command) {
    std::string copy(command);
    commanddispatcher.dispatchCommand(copy);
}

std::string Program::SettingsFile() const {
    return place.folder + files::separator + place.name + ".ini";
}

}  // namespace zvr
