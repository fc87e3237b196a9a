#include "wire/NoticePage.hpp"

#include <utility>

namespace sim::wire {
namespace {

void writeNulls(JsonText& out, auto... names) { (out.name(names).null(), ...); }

void writeEmptyList(JsonText& out) {
  out.beginArray();
  out.endArray();
}

/// What stands above a page's content.
void writeHead(JsonText& out, std::string_view title) {
  out.name("id").natural(0);
  out.name("class").string("");
  out.name("title").string(title);
  writeNulls(out, "back", "prompt", "titleView");
  writeEmptyList(out.name("buttons"));
  out.name("largeTitle").flag(true);
  out.name("bar").beginObject();
  writeNulls(out, "color", "titleColor", "largeTitleColor", "tintColor", "interfaceStyle", "standard", "scrollEdge");
  out.name("translucent").flag(true);
  out.name("hidden").flag(false);
  out.endObject();
}

}  // namespace

void writeNotice(JsonText& out, std::string_view header, std::string_view footer) {
  writeNulls(out, "backgroundColor", "backgroundView", "headerView", "footerView", "interfaceStyle", "scrolling",
             "search", "separatorColor", "touchId", "view");
  out.name("separators").flag(true);
  out.name("scrolls").flag(true);
  out.name("contentInset").beginArray();
  out.number(0.0);
  out.number(0.0);
  out.endArray();
  out.name("underBar").flag(false);
  out.name("editing").flag(false);
  out.name("style").string("insetGrouped");
  out.name("sections").beginArray();
  out.beginObject();
  if (header.empty()) {
    writeNulls(out, "header");
  } else {
    out.name("header").string(header);
  }
  out.name("footer").string(footer);
  writeNulls(out, "headerView", "footerView", "headerHeight", "footerHeight");
  writeEmptyList(out.name("rows"));
  out.endObject();
  out.endArray();
}

std::string noticeScreen(std::uint64_t revision, std::string_view header, std::string_view footer) {
  constexpr std::string_view kTitle = "Settings";
  JsonText out;
  out.beginObject();
  out.name("revision").natural(revision);
  writeNulls(out, "contentOffset");
  out.name("path").beginArray();
  out.string(kTitle);
  out.endArray();
  out.name("page").beginObject();
  writeHead(out, kTitle);
  writeNotice(out, header, footer);
  out.endObject();
  writeNulls(out, "alert", "sheet", "menu");
  out.endObject();
  return std::move(out).text();
}

}  // namespace sim::wire
