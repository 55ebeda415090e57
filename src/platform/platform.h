#pragma once

#include "platform/autostart.h"
#include "platform/background.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/discs.h"
#include "platform/display.h"
#include "platform/dvdcontrol.h"
#include "platform/eventloop.h"
#include "platform/files.h"
#include "platform/instance.h"
#include "platform/localserver.h"
#include "platform/mediacontrol.h"
#include "platform/mixer.h"
#include "platform/power.h"
#include "platform/processes.h"
#include "platform/screen.h"
#include "platform/serialport.h"
#include "platform/tcpclient.h"

namespace zvr {

/// The services of the machine, made once by main or by a test's bench.
struct Platform {
    EventLoop loop;
    Background background{loop};
    Screen screen{loop};
    Dialogs dialogs;
    Instance instance;
    Desktop desktop;
    Display display;
    Mixer mixer;
    MediaControl media{loop};
    DvdControl dvd{loop};
    Drives drives;
    Discs discs{loop};
    Power power;
    Autostart autostart;
    Processes processes;
    SerialPort serial;
    LocalServer server{loop};
    TcpClient phoneSocket{loop};
};

}  // namespace zvr
