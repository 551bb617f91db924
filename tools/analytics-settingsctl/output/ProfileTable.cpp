#include "output/ProfileTable.h"

#include "Transformed.h"
#include "output/Table.h"
#include "output/TextWidth.h"

namespace settingsctl {
namespace {

using analytics::types::Point;

std::string Text(const Point& point) {
  return "(" + std::to_string(point.x) + "," + std::to_string(point.y) + ")";
}

std::string Text(const std::optional<int>& number) {
  return number ? std::to_string(*number) : "-";
}

std::string Text(const GivenPoint& point) {
  return "(" + Text(point.x) + "," + Text(point.y) + ")";
}

std::string Text(const GivenPair& pair) {
  return IsMissing(pair) ? "missing" : Text(pair[0]) + " " + Text(pair[1]);
}

std::string Text(const Shape& shape) {
  std::string text = (shape.item.empty() ? "-" : Printable(shape.item)) + ": " + shape.element;
  for (const Point& point : shape.points) text += " " + Text(point);
  return text;
}

std::string Text(const CalibrationContents& calibration) {
  const std::optional<int>& height = calibration.physicalHeight;
  return "Calibration: object at near left " + Text(calibration.nearLeft) +
         "\nCalibration: near width " + Text(calibration.nearWidth) + "\nCalibration: far width " +
         Text(calibration.farWidth) + "\nCalibration: physical height " +
         (height ? Text(height) : "missing");
}

/// All that hangs below a rule, an engine or an event sink, a line each.
std::string Parameters(const Entity& entity) {
  std::string text;
  const auto add = [&text](const std::string& line) { text += (text.empty() ? "" : "\n") + line; };
  for (const auto& item : entity.items) {
    add(Printable(item.first) + " = " + Printable(item.second));
  }
  for (const Shape& shape : entity.shapes) add(Text(shape));
  if (entity.calibration) add(Text(*entity.calibration));
  return text.empty() ? "-" : text;
}

std::string OrDash(const std::string& text) { return text.empty() ? "-" : Printable(text); }

void WriteRules(std::ostream& out, const std::vector<Entity>& rules) {
  Table table({"RULE", "NAME", "ACTIVE", "PARAMETERS"});
  for (const Entity& rule : rules) {
    table.Add(
        {OrDash(rule.type), OrDash(rule.name), rule.isActive ? "yes" : "no", Parameters(rule)},
        rule.isActive ? std::nullopt : std::optional<Style>(Style::kDim));
  }
  out << "\n";
  table.Write(out);
}

void WriteOthers(std::ostream& out, const char* heading, const std::vector<Entity>& entities) {
  if (entities.empty()) return;
  Table table({heading, "NAME", "PARAMETERS"});
  for (const Entity& entity : entities) {
    table.Add({OrDash(entity.type), OrDash(entity.name), Parameters(entity)});
  }
  out << "\n";
  table.Write(out);
}

std::string Counted(std::size_t count, const std::string& thing) {
  return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined += (joined.empty() ? "" : ", ") + Printable(text);
  return joined.empty() ? "none" : joined;
}

Json PointsJson(const std::vector<Point>& points) {
  return Transformed(points, [](const Point& point) { return Json::array({point.x, point.y}); });
}

Json NumberJson(const std::optional<int>& number) { return number ? Json(*number) : Json(nullptr); }

Json PairJson(const GivenPair& pair) {
  if (IsMissing(pair)) return nullptr;
  return Transformed(pair, [](const GivenPoint& point) {
    return Json::array({NumberJson(point.x), NumberJson(point.y)});
  });
}

Json ShapeJson(const Shape& shape) {
  Json json{{"item", shape.item}, {"element", shape.element}};
  if (!shape.isRectangle) {
    json["points"] = PointsJson(shape.points);
    return json;
  }
  json["rectangle"] = {{"left", shape.points[0].x},
                       {"top", shape.points[0].y},
                       {"right", shape.points[1].x},
                       {"bottom", shape.points[1].y}};
  return json;
}

/// What the profile lacks is null.
Json CalibrationJson(const CalibrationContents& calibration) {
  return {{"objectAtNearLeft", PairJson(calibration.nearLeft)},
          {"nearWidth", PairJson(calibration.nearWidth)},
          {"farWidth", PairJson(calibration.farWidth)},
          {"physicalHeight", NumberJson(calibration.physicalHeight)}};
}

Json EntityJson(const Entity& entity, bool isRule) {
  Json json{{"type", entity.type}, {"name", entity.name}, {"line", entity.line}};
  if (isRule) json["active"] = entity.isActive;
  json["items"] = Json::object();
  for (const auto& item : entity.items) json["items"][item.first] = item.second;
  json["shapes"] = Json::array();
  for (const Shape& shape : entity.shapes) json["shapes"].push_back(ShapeJson(shape));
  if (entity.calibration) json["calibration"] = CalibrationJson(*entity.calibration);
  return json;
}

Json EntitiesJson(const std::vector<Entity>& entities, bool areRules = false) {
  return Transformed(entities, [=](const Entity& entity) { return EntityJson(entity, areRules); });
}

}  // namespace

void WriteProfile(std::ostream& out, const std::string& name, const ProfileContents& contents) {
  out << Styled(Style::kBold, Printable(name)) << ": " << Counted(contents.engines.size(), "engine")
      << ", " << Counted(contents.rules.size(), "rule") << ", "
      << Counted(contents.sinks.size(), "event sink") << "\n";
  for (const std::string& line : Wrapped("Active types: " + Joined(contents.activeTypes), 80)) {
    out << line << "\n";
  }
  WriteOthers(out, "ENGINE", contents.engines);
  if (!contents.rules.empty()) WriteRules(out, contents.rules);
  WriteOthers(out, "EVENT SINK", contents.sinks);
}

Json ProfileJson(const std::string& name, const ProfileContents& contents) {
  return {{"file", name},
          {"activeTypes", contents.activeTypes},
          {"engines", EntitiesJson(contents.engines)},
          {"rules", EntitiesJson(contents.rules, true)},
          {"eventSinks", EntitiesJson(contents.sinks)}};
}

}  // namespace settingsctl
