#include "server/WidgetStage.hpp"

#include "base/Json.hpp"

#include <algorithm>
#include <utility>

namespace sim {
namespace {

using Json = nlohmann::json;

Json contentOf(const Response& response) { return response.body ? parseJson(*response.body).value_or(Json()) : Json(); }

// "-viewDidAppear" is a method, anything else what the widget was being done to, or did.
std::string during(const std::string& doing) {
  if (doing.empty()) return "";
  return doing.starts_with('-') ? ", in " + doing : ", while " + doing;
}

std::string seconds(std::chrono::milliseconds time) {
  return time.count() % 1000 == 0 ? std::to_string(time.count() / 1000) + " s" : std::to_string(time.count()) + " ms";
}

SettingsProcess::Settings forStage(SettingsProcess::Settings settings, std::chrono::milliseconds patience) {
  settings.patience.hung = patience;
  // A process that does not answer is ended first, and its end is the answer.
  settings.patience.answer = settings.patience.firstAnswer = 2 * patience;
  settings.arguments = {"--role", "stage"};
  settings.name = "The stage";
  settings.isStartedAgain = false;
  return settings;
}

}  // namespace

WidgetStage::WidgetStage(EventLoop& loop, SettingsProcess::Settings settings, Listener listener)
    : listener_(std::move(listener)),
      patience_(std::min(settings.patience.hung, kPatience)),
      process_(loop, forStage(std::move(settings), patience_), listenerOf()) {}

SettingsProcess::Listener WidgetStage::listenerOf() {
  return {
      .greeting = listener_.greeting,
      .posted = [this](SettingsProcess::Post post) { posted(std::move(post)); },
      .logged = listener_.logged,
      .revisionChanged = listener_.changed,
      .started = [] {},
      .ended = [this](const SettingsProcess::End& end) { ended(end); },
  };
}

void WidgetStage::posted(SettingsProcess::Post post) {
  if (const auto* entering = std::get_if<wire::Entering>(&post)) {
    work_ = entering->widget.empty() ? std::nullopt : std::optional<Work>({entering->widget, entering->doing});
  } else if (const auto* raised = std::get_if<wire::Raised>(&post)) {
    found("raised", "It raised " + raised->name + ": " + raised->reason);
  } else {
    listener_.posted(std::move(post));
  }
}

void WidgetStage::ended(const SettingsProcess::End& end) {
  if (end.wasHung) found("hung", "It did not return within " + seconds(patience_) + " and was ended");
  else found("crashed", "It " + end.how);
  shown_.reset();
  work_.reset();
  listener_.changed();
}

// Whose code was at work is at fault.
void WidgetStage::found(std::string kind, const std::string& what) {
  if (!work_) return;
  Fault fault{work_->widget, std::move(kind), what + during(work_->doing) + "."};
  if (Json* widget = widgetAt(fault.widget)) {
    (*widget)["state"] = fault.kind;
    (*widget)["reason"] = fault.text;
  }
  listener_.logged(fault.widget + ": " + fault.text);
  fault_ = std::move(fault);
  shown_.reset();
  listener_.changed();
}

void WidgetStage::close(const std::string& why) {
  if (!isOpen_) return;
  isOpen_ = false;
  end(why);
}

void WidgetStage::end(const std::string& why) {
  ++run_;
  isBusy_ = false;
  shown_.reset();
  work_.reset();
  process_.end(why);
  listener_.changed();
}

void WidgetStage::perform(const Json& action, Respond respond) {
  const std::string type = textOrEmpty(action, "type");
  if (type == "close") {
    close("The stage was closed.");
    return finish(respond);
  }
  if (type == "load") {
    wanted_ = {};
    return start(std::move(respond));
  }
  if (type == "show") {
    std::string widget = textOrEmpty(action, "widget");
    if (widget.empty()) return refuse(400, "A \"show\" has a \"widget\", the path of its bundle.", respond);
    wanted_ = {.widget = std::move(widget)};
    return start(std::move(respond));
  }
  if (type != "step" && type != "call" && type != "preferences")
    return refuse(400, "A \"type\" is \"load\", \"show\", \"step\", \"call\", \"preferences\" or \"close\".", respond);
  if (isBusy_) return refuse(409, "The stage has not answered what it was asked before.", respond);
  if (!shown_) return refuse(422, "No widget is on the stage.", respond);
  if (type == "step") {
    step(std::move(respond));
    wanted_.steps = step_;
    return;
  }
  if (type == "preferences") return ask(wire::OpenPreferences{}, {}, {}, std::move(respond));

  const auto argument = action.find("argument");
  if (argument != action.end() && !argument->is_boolean() && !argument->is_null())
    return refuse(400, "An \"argument\" is true or false.", respond);
  const bool hasArgument = argument != action.end() && argument->is_boolean();
  call(textOrEmpty(action, "method"), hasArgument ? std::optional(argument->get<bool>()) : std::nullopt,
       std::move(respond));
}

// A fresh process, which has the newest code of each widget and nothing of what earlier ones left behind.
void WidgetStage::start(Respond respond) {
  end("The stage was started afresh.");
  refused_.clear();
  fault_.reset();
  calls_.clear();
  callCount_ = 0;
  step_ = 0;
  isActivePage_ = nullptr;
  isOpen_ = true;
  isBusy_ = true;
  listener_.changed();
  load(run_, std::move(respond));
}

void WidgetStage::reload() {
  if (!isOpen_) return;
  start([this](const Response& response) {
    if (response.status == 200) stepUpToWanted();
  });
}

void WidgetStage::stepUpToWanted() {
  if (step_ >= wanted_.steps || !nextStep()) return;
  step([this](const Response& response) {
    if (response.status == 200) stepUpToWanted();
  });
}

void WidgetStage::load(std::uint64_t run, Respond respond) {
  Json refused = Json::object();
  for (const auto& [path, fault] : refused_) refused[path] = fault.text;
  fault_.reset();
  process_.start();
  process_.request(wire::LoadWidgets{toText(refused)},
                   [this, run, respond](Response response) { loaded(response, run, respond); });
}

// A widget that ends the load of all is left out of the next attempt.
void WidgetStage::loaded(const Response& response, std::uint64_t run, Respond respond) {
  if (run != run_) return respond(errorResponse(503, "The stage was closed or started afresh meanwhile."));
  if (response.status != 200) {
    if (!fault_ || refused_.contains(fault_->widget)) {
      isBusy_ = false;
      listener_.changed();
      return respond(response);
    }
    refused_.insert_or_assign(fault_->widget, *fault_);
    process_.end("The stage is started afresh.");
    return load(run, std::move(respond));
  }
  Json content = contentOf(response);
  widgets_ = content.value("widgets", Json::array());
  steps_ = content.value("steps", Json::array());
  for (auto& [path, fault] : refused_) {
    if (Json* widget = widgetAt(path)) {
      (*widget)["state"] = fault.kind;
      (*widget)["reason"] = fault.text;
    }
  }
  if (wanted_.widget.empty()) return finish(respond);
  show(run, std::move(respond));
}

void WidgetStage::show(std::uint64_t run, Respond respond) {
  const std::string& wanted = wanted_.widget;
  const Json* widget = widgetAt(wanted);
  if (widget == nullptr) {
    isBusy_ = false;
    return refuse(404, "The widgets folder has no " + wanted + ".", respond);
  }
  if ((*widget)["state"] != "loaded") {
    if (const auto refused = refused_.find(wanted); refused != refused_.end()) fault_ = refused->second;
    isBusy_ = false;
    return refuse(422, textOrEmpty(*widget, "reason"), respond);
  }
  shown_ = wanted;
  process_.request(wire::ShowWidget{wanted}, [this, run, respond](Response response) {
    if (run != run_) return respond(errorResponse(503, "The stage was closed or started afresh meanwhile."));
    note("setupWithFrame:", {}, response);
    if (response.status != 200 && !fault_) {
      shown_.reset();
      isBusy_ = false;
      listener_.changed();
      return respond(response);
    }
    finish(respond);
  });
}

// The next step whose method the widget has.
void WidgetStage::step(Respond respond) {
  const auto next = nextStep();
  if (!next) return refuse(422, "A switcher says nothing more to a page that is gone.", respond);
  step_ = *next + 1;
  const Json& step = steps_[*next];
  const Json& argument = step["argument"];
  call(textOrEmpty(step, "method"), argument.is_boolean() ? std::optional(argument.get<bool>()) : std::nullopt,
       std::move(respond));
}

void WidgetStage::call(std::string method, std::optional<bool> argument, Respond respond) {
  ask(wire::CallWidget{method, argument}, method, argument, std::move(respond));
}

// `method` is empty for what is no message to the widget.
void WidgetStage::ask(wire::Call call, std::string method, std::optional<bool> argument, Respond respond) {
  isBusy_ = true;
  listener_.changed();
  const std::uint64_t run = run_;
  process_.request(std::move(call), [this, run, method, argument, respond](Response response) {
    if (run != run_) return respond(errorResponse(503, "The stage was closed or started afresh meanwhile."));
    isBusy_ = false;
    if (response.status != 200 && !fault_) {
      listener_.changed();
      return respond(response);
    }
    if (!method.empty()) note(method, argument, response);
    finish(respond);
  });
}

void WidgetStage::note(const std::string& method, std::optional<bool> argument, const Response& response) {
  const Json content = response.status == 200 ? contentOf(response) : Json::object();
  isActivePage_ = content.value("isActivePage", Json());
  const bool isDone = response.status == 200 && !fault_;
  calls_.push_back({{"number", ++callCount_},
                    {"method", method},
                    {"argument", argument ? Json(*argument) : Json()},
                    {"outcome", isDone   ? "done"
                                : fault_ ? fault_->kind
                                         : "refused"},
                    {"milliseconds", content.value("milliseconds", Json())},
                    {"detail", isDone   ? Json()
                               : fault_ ? Json(fault_->text)
                                        : contentOf(response).value("error", Json())}});
  if (calls_.size() > kMostCalls) calls_.pop_front();
}

void WidgetStage::finish(const Respond& respond) {
  isBusy_ = false;
  listener_.changed();
  respond(jsonResponse(200, json()));
}

void WidgetStage::refuse(int status, const std::string& why, const Respond& respond) {
  listener_.changed();
  respond(errorResponse(status, why));
}

Json WidgetStage::json() const {
  const auto next = nextStep();
  return {
      {"busy", isBusy_},
      {"widgets", widgets_},
      {"steps", steps_},
      {"nextStep", next ? Json(*next) : Json()},
      {"shown", shown_ ? Json(*shown_) : Json()},
      {"isActivePage", isActivePage_},
      {"revision", process_.revision()},
      {"calls", calls_},
      {"fault", fault_ ? Json{{"widget", fault_->widget}, {"kind", fault_->kind}, {"text", fault_->text}} : Json()}};
}

Json* WidgetStage::widgetAt(const std::string& path) {
  for (Json& widget : widgets_)
    if (textOrEmpty(widget, "path") == path) return &widget;
  return nullptr;
}

bool WidgetStage::shownImplements(const std::string& method) const {
  for (const Json& widget : widgets_) {
    if (textOrEmpty(widget, "path") != shown_) continue;
    for (const Json& each : widget.value("methods", Json::array()))
      if (textOrEmpty(each, "name") == method) return each.value("implemented", false);
  }
  return false;
}

std::optional<std::size_t> WidgetStage::nextStep() const {
  if (!shown_) return std::nullopt;
  for (std::size_t at = step_; at < steps_.size(); ++at)
    if (shownImplements(textOrEmpty(steps_[at], "method"))) return at;
  return std::nullopt;
}

}  // namespace sim
