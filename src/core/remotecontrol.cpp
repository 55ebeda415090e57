#include "core/remotecontrol.h"

#include "core/commanddispatcher.h"
#include "core/dialogqueue.h"
#include "core/json.h"
#include "core/language.h"
#include "core/program.h"
#include "core/remotelook.h"
#include "platform/log.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "skin/check/skincheck.h"
#include "skin/placeholders.h"
#include "skin/skinner.h"
#include "ui/stage.h"

#include <algorithm>
#include <memory>

namespace zvr {
namespace {

constexpr std::size_t mostTokens = 32;
constexpr std::size_t mostWatches = 16;
/// Commands that wait inside of one another: more than dialogs can wait, so that their answers come through.
constexpr int mostRunning = 2 * DialogQueue::most;

std::string ErrorAnswer(std::string_view why) {
    JsonWriter json;
    json.BeginObject();
    json.Key("error");
    json.String(why);
    json.EndObject();
    return json.text;
}

std::string OkAnswer() {
    return R"({"ok":true})";
}

std::string LinesAnswer(const std::vector<std::string>& lines) {
    JsonWriter json;
    json.BeginObject();
    json.Key("ok");
    json.Boolean(true);
    json.Key("lines");
    json.BeginList();
    for (const std::string& line : lines) {
        json.String(line);
    }
    json.EndList();
    json.EndObject();
    return json.text;
}

bool IsPlain(std::string_view line) {
    return std::none_of(line.begin(), line.end(), [](unsigned char c) { return c < 32 && c != '\t'; });
}

const char* KindName(ControlKind kind) {
    switch (kind) {
        case ControlKind::image:
            return "image";
        case ControlKind::label:
            return "label";
        case ControlKind::picture:
            return "picture";
        case ControlKind::grid:
            return "grid";
        case ControlKind::textBox:
            return "textbox";
        case ControlKind::video:
            return "video";
    }
    return "";
}

void WriteGrid(JsonWriter& json, const Grid& grid) {
    json.Key("rows");
    json.Number(grid.RowCount());
    json.Key("row");
    json.Number(grid.Row());
    json.Key("top");
    json.Number(grid.Top());
    json.Key("rowHeight");
    json.Number(grid.Look().rowHeight);
    json.Key("texts");
    json.BeginList();
    const int last = std::min(grid.RowCount(), grid.Top() + grid.VisibleRows() - 1);
    for (int row = grid.Top(); row <= last; ++row) {
        json.String(grid.RowAt(row).text);
    }
    json.EndList();
}

void WriteControl(JsonWriter& json, const Control& control, Point origin) {
    Rect place = control.Place();
    place.x += origin.x;
    place.y += origin.y;
    json.BeginObject();
    json.Key("name");
    json.String(control.name);
    json.Key("index");
    json.Number(control.index);
    json.Key("kind");
    json.String(KindName(control.kind));
    if (!control.role.empty()) {
        json.Key("role");
        json.String(control.role);
    }
    json.Key("tag");
    json.String(control.Tag());
    json.Key("caption");
    json.String(control.caption.get());
    WritePlace(json, place);
    json.Key("visible");
    json.Boolean(control.IsShown());
    if (control.grid) {
        WriteGrid(json, *control.grid);
    }
    if (control.text) {
        json.Key("text");
        json.String(control.text->text);
    }
    json.EndObject();
}

}  // namespace

RemoteControl::RemoteControl(Program& program) : program(program) {}

RemoteControl::~RemoteControl() {
    LocalServer& server = program.platform.server;
    server.Close();
    server.onLine = nullptr;
    server.onTooLong = nullptr;
    server.onGone = nullptr;
    server.isWanted = nullptr;
}

void RemoteControl::Listen() {
    LocalServer& server = program.platform.server;
    server.onLine = [this](LocalServer::Client client, const std::string& line) { Received(client, line); };
    server.onTooLong = [&server](LocalServer::Client client) {
        server.Send(client, ErrorAnswer("the line is too long"));
    };
    server.onGone = [this](LocalServer::Client client) {
        watches.erase(client);
        followers.erase(client);
        lookFollowers.erase(client);
    };
    server.isWanted = [this](LocalServer::Client client) {
        return watches.contains(client) || followers.contains(client) || lookFollowers.contains(client);
    };
    (void)server.Listen(ControlSocketPath());
}

void RemoteControl::Received(LocalServer::Client client, const std::string& line) {
    constexpr std::string_view run = "do ";
    EventLoop& loop = program.platform.loop;
    if (line.starts_with(run) && line.size() > run.size() && IsPlain(line)) {
        const auto answer = std::make_shared<std::string>(OkAnswer());
        loop.Post([this, command = line.substr(run.size()), answer] { Run(command, *answer); });
        // After the command. One that opens a dialog waits inside, and this runs inside its wait: the caller never
        // hangs on an open box.
        loop.Post([this, client, answer] { program.platform.server.Send(client, *answer); });
        return;
    }
    // Posted too, behind what the same client sent before. Who asks on and on without reading makes no work.
    loop.Post([this, client, line] {
        if (program.platform.server.Reaches(client)) {
            program.platform.server.Send(client, Answer(client, line));
        }
    });
}

void RemoteControl::Run(const std::string& command, std::string& answer) {
    // Each command that waits keeps the ones before it waiting below it, and there is an end to that.
    if (running >= mostRunning) {
        answer = ErrorAnswer("too many commands have not come to their end");
        return;
    }
    const unsigned refused = program.dialogs.Refused();
    ++running;
    program.dispatchCommand(command);
    --running;
    if (program.dialogs.Refused() != refused) {
        answer = ErrorAnswer("too many dialogs wait for the driver");
    }
}

std::string RemoteControl::Answer(LocalServer::Client client, const std::string& line) {
    const auto blank = line.find(' ');
    const std::string word = line.substr(0, blank);
    const std::string rest = blank == std::string::npos ? "" : line.substr(blank + 1);
    if (!IsPlain(line)) {
        return ErrorAnswer("the line holds control characters");
    }
    if (word == "state" && rest.empty()) {
        return StateText();
    }
    if (line == "log") {
        return LinesAnswer(Log::Lines());
    }
    if (line == "log follow") {
        return FollowLog(client);
    }
    if (line == "look") {
        return RemoteLook(program);
    }
    if (line == "look follow") {
        return FollowLook(client);
    }
    if (word == "skin" && rest == "reload") {
        return ReloadSkin();
    }
    if (word == "get" || word == "watch") {
        const auto words = text::Words(rest);
        const std::vector<std::string> tokens(words.begin(), words.end());
        if (tokens.empty() || tokens.size() > mostTokens) {
            return ErrorAnswer("1 to 32 tokens are needed");
        }
        const std::string answer = Values(tokens);
        if (word == "watch" && answer.starts_with(R"({"ok")")) {
            if (watches.size() >= mostWatches && !watches.contains(client)) {
                return ErrorAnswer("too many clients watch");
            }
            watches[client] = {tokens, answer};
        }
        return answer;
    }
    return ErrorAnswer(
        "unknown request; there are do COMMAND, get TOKEN..., watch TOKEN..., log, log follow, look, look follow, "
        "skin reload and state");
}

std::string RemoteControl::Values(const std::vector<std::string>& tokens) {
    JsonWriter json;
    json.BeginObject();
    json.Key("ok");
    json.Boolean(true);
    json.Key("values");
    json.BeginObject();
    for (const std::string& token : tokens) {
        bool known = false;
        const std::string value = PlaceholderText(program, token, known);
        if (!known) {
            return ErrorAnswer("unknown token " + token);
        }
        json.Key(token);
        json.String(value);
    }
    json.EndObject();
    json.EndObject();
    return json.text;
}

std::string RemoteControl::FollowLog(LocalServer::Client client) {
    if (followers.size() >= mostWatches && !followers.contains(client)) {
        return ErrorAnswer("too many clients follow the log");
    }
    followers[client] = Log::LastNumber();
    return LinesAnswer(Log::Lines());
}

void RemoteControl::NotifyFollowers() {
    const std::uint64_t latest = Log::LastNumber();
    for (auto& [client, told] : followers) {
        if (told == latest) {
            continue;
        }
        const auto news = Log::News(told);
        told = latest;
        if (!news.empty()) {
            program.platform.server.Send(client, LinesAnswer(news));
        }
    }
}

std::string RemoteControl::FollowLook(LocalServer::Client client) {
    if (lookFollowers.size() >= mostWatches && !lookFollowers.contains(client)) {
        return ErrorAnswer("too many clients follow the look");
    }
    return lookFollowers[client] = RemoteLook(program);
}

void RemoteControl::NotifyLookFollowers() {
    if (lookFollowers.empty()) {
        return;
    }
    const std::string look = RemoteLook(program);
    for (auto& [client, told] : lookFollowers) {
        if (told != look) {
            told = look;
            program.platform.server.Send(client, look);
        }
    }
}

void RemoteControl::NotifyWatchers() {
    NotifyFollowers();
    NotifyLookFollowers();
    for (auto& [client, watch] : watches) {
        std::string answer = Values(watch.tokens);
        if (answer != watch.lastAnswer) {
            program.platform.server.Send(client, answer);
            watch.lastAnswer = std::move(answer);
        }
    }
}

/// Looks before it applies: what would not load leaves the screen as it is.
std::string RemoteControl::ReloadSkin() {
    Skinner& skinner = program.skinner;
    if (skinner.loadedSkin.empty()) {
        return ErrorAnswer("no skin is applied yet");
    }
    if (program.stage.ModalForm() != nullptr) {
        return ErrorAnswer("a dialog is open");
    }
    std::string folder = skinner.FolderOf(skinner.loadedSkin);
    folder.pop_back();
    const SkinReport report = CheckSkin(folder, {{program.usedLanguage, program.language}});
    if (report.WouldLoad()) {
        skinner.ReloadSkin();
        return OkAnswer();
    }
    JsonWriter json;
    json.BeginObject();
    json.Key("error");
    json.String("the skin would not load");
    json.Key("faults");
    json.BeginList();
    for (const SkinFinding& finding : report.findings) {
        if (finding.keepsFromLoading) {
            json.String(LineOf(finding, folder));
        }
    }
    json.EndList();
    json.EndObject();
    return json.text;
}

std::string RemoteControl::StateText() const {
    const auto nameOrNull = [](JsonWriter& json, const Form* form) {
        if (form == nullptr) {
            json.Null();
        } else {
            json.String(form->name);
        }
    };
    const Point root = program.platform.screen.RootOrigin();
    JsonWriter json;
    json.BeginObject();
    json.Key("ok");
    json.Boolean(true);
    json.Key("front");
    nameOrNull(json, program.stage.FrontForm());
    json.Key("dialog");
    nameOrNull(json, program.stage.ModalForm());
    json.Key("commands");
    json.Number(program.commanddispatcher.dispatched);
    json.Key("lastCommand");
    json.String(program.commanddispatcher.lastCommand);
    json.Key("forms");
    json.BeginObject();
    for (const Form* form : program.stage.Forms()) {
        Rect place = form->Place();
        if (form->role == FormRole::child) {
            place.x += root.x;
            place.y += root.y;
        }
        json.Key(form->name);
        json.BeginObject();
        json.Key("visible");
        json.Boolean(form->visible);
        WritePlace(json, place);
        json.Key("controls");
        json.BeginList();
        for (const Control* control : form->Controls()) {
            WriteControl(json, *control, {place.x, place.y});
        }
        json.EndList();
        json.EndObject();
    }
    json.EndObject();
    json.EndObject();
    return json.text;
}

}  // namespace zvr
