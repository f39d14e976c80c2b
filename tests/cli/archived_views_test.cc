// SPDX-License-Identifier: MIT

// Whole view trees as hosts get them: each key here is a contract with programs of other people.
#include "tests/support/cli.h"

namespace brevant::test {
namespace {

// Without the bytes of pictures.
nlohmann::json elided(nlohmann::json tree) {
  if (tree.contains("png")) tree["png"] = "";
  if (tree.is_structured()) {
    for (auto& each : tree) each = elided(std::move(each));
  }
  return tree;
}

class ArchivedViews : public Cli {
 protected:
  void SetUp() override {
    addCategory("C", "Code", 0x3366AA);
    addActivity("A", "C", 1, "1699999000.5");
    addInterval("A", 1699990000, 1699990060);
  }
};

TEST_F(ArchivedViews, OfTheMediumWidget) {
  const std::string control = R"("label":{"view":"Image","systemName":"NAME.fill","modifiers":[
    {"frame":{"width":18,"height":18,"alignment":"center"}},
    {"padding":{"top":4,"leading":4,"bottom":4,"trailing":4}},
    {"background":{"roundedRectangle":{"cornerRadius":20,"style":"continuous"},
                   "fill":{"red":0.95,"green":0.95,"blue":0.95,"alpha":1}}}]},
    "modifiers":[{"buttonStyle":"plain"}])";
  const auto button = [&control](const std::string& operation) {
    std::string label = control;
    label.replace(label.find("NAME"), 4, operation);
    return R"({"view":"Button","intent":{"name":"StopActivityIntent","activityId":"A",
      "operation":")" +
           operation + "\"}," + label + "}";
  };
  const Json expected = Json::parse(R"(
    {"view":"VStack","alignment":"leading","spacing":4,"children":[
      {"view":"HStack","alignment":"center","spacing":6,"children":[
        {"view":"Image","image":{"width":32,"height":32,"scale":3,"png":""},"modifiers":[
          {"resizable":true},{"frame":{"width":20,"height":20,"alignment":"center"}}]},
        {"view":"Text","text":"Code","modifiers":[{"font":{"style":"body"}},{"lineLimit":1}]}]},
      {"view":"HStack","alignment":"center","spacing":12,"children":[
        {"view":"VStack","alignment":"leading","spacing":4,"children":[
          {"view":"Text","date":1699999000.5,"style":"timer","modifiers":[
            {"font":{"size":44,"weight":"regular","design":"default"}},{"fontWeight":"semibold"},
            {"monospacedDigit":true},{"lineLimit":1},{"minimumScaleFactor":0.5}]},
          {"view":"Text","date":1699998940.5,"style":"timer","modifiers":[
            {"font":{"style":"subheadline"}},{"monospacedDigit":true},{"lineLimit":1},
            {"opacity":0.6}]}]},
        {"view":"Spacer"},
        {"view":"HStack","alignment":"center","spacing":12,"children":[)" +
                                    button("pause") + "," + button("stop") + R"(]}]}],
    "modifiers":[{"padding":{"top":16,"leading":16,"bottom":16,"trailing":16}},
      {"containerBackground":{"color":"clear","placement":"widget","alignment":"center"}},
      {"frame":{"maxWidth":"infinity","maxHeight":"infinity","alignment":"center"}}]})");
  EXPECT_EQ(elided(ask({"timeline"})["entries"][0]["views"]["systemMedium"]), expected);
  EXPECT_EQ(
      elided(ask({"snapshot"})["icon"]),
      (Json{{"name", "cat_111@2x.png"}, {"width", 32}, {"height", 32}, {"scale", 2}, {"png", ""}}));
}

// Before its controls were intents.
TEST_F(ArchivedViews, OfTheLockScreen) {
  ask({"live", "start"}, R"({"guid":"A","typeName":"Code","icon":"cat_2","color":3368618,
                             "start":721691000.5,"message":""})");
  const Json expected = Json::parse(R"(
    {"view":"VStack","alignment":"center","spacing":8,"children":[
      {"view":"Text","text":" ","modifiers":[
        {"font":{"size":10,"weight":"regular","design":"default"}}]},
      {"view":"HStack","alignment":"center","spacing":8,"children":[
        {"view":"Text","date":1699998200.5,"style":"timer","modifiers":[
          {"font":{"style":"largeTitle"}},{"monospacedDigit":true},{"bold":true},
          {"multilineTextAlignment":"leading"},{"lineLimit":1}]},
        {"view":"HStack","alignment":"center","spacing":0,"children":[
          {"view":"Link","modifiers":[{"padding":{"trailing":"default"}}],
           "destination":"brevant:///widget?type=live_activity&action=pause&activity=A",
           "label":{"view":"Image","name":"pause_widget_light@2x.png",
             "image":{"width":50,"height":50,"scale":2,"png":"","name":"pause_widget_light@2x.png"},
             "modifiers":[
               {"resizable":true},{"frame":{"width":44,"height":44,"alignment":"center"}}]}},
          {"view":"Link",
           "destination":"brevant:///widget?type=live_activity&action=stop&activity=A",
           "label":{"view":"Image","name":"stop_widget@2x.png",
             "image":{"width":50,"height":50,"scale":2,"png":"","name":"stop_widget@2x.png"},
             "modifiers":[
               {"resizable":true},{"frame":{"width":44,"height":44,"alignment":"center"}}]}}]}]},
      {"view":"HStack","alignment":"center","spacing":8,"children":[
        {"view":"Label",
         "title":{"view":"Text","text":"Code","modifiers":[
           {"font":{"style":"title3"}},{"lineLimit":1},{"minimumScaleFactor":0.5}]},
         "icon":{"view":"Image","image":{"width":32,"height":32,"scale":3,"png":""},"modifiers":[
           {"resizable":true},{"frame":{"width":20,"height":20,"alignment":"center"}}]}},
        {"view":"HStack","alignment":"center","spacing":0,"children":[
          {"view":"Text","text":"From : ","modifiers":[{"font":{"style":"footnote"}}]},
          {"view":"Text","date":1699998200.5,"style":"time","modifiers":[
            {"font":{"style":"footnote"}}]},
          {"view":"Text","text":" "}]}]}],
    "modifiers":[{"padding":{"leading":16,"bottom":10,"trailing":10}}]})");
  EXPECT_EQ(elided(ask({"live", "show", "--system-version", "16.1"})["lockScreen"]), expected);
}

}  // namespace
}  // namespace brevant::test
