#include <algorithm>
#include <iterator>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

#include "document/DocumentImpl.h"
#include "document/Selection.h"
#include "document/TypedText.h"
#include "document/XmlText.h"

namespace analytics {
namespace {

/// Reads attributes of geometry.
class CoordinateReader {
 public:
  int operator()(xmlNodePtr node, const char* name, int absent) const {
    return m_read(AttributeText(node, name), absent);
  }

 private:
  const IntegerReader m_read{};
};

}  // namespace

bool ProfileDoc::PointFromNode(DocumentNode* node, types::Point& point) {
  if (!node) return false;
  point = types::Point{node->GetProperty("x", point.x), node->GetProperty("y", point.y)};
  return true;
}

bool ProfileDoc::GetPoints(std::vector<types::Point>& points, const std::string& xpath,
                           DocumentNode* context) {
  const Selection selected(m_impl->SearchContext(), context, xpath.c_str());
  const CoordinateReader read;  // after the query, whose errors the program's own handler may see
  if (points.empty()) points.reserve(static_cast<std::size_t>(selected.Count()));
  for (int index = 0; index < selected.Count(); ++index) {
    const xmlNodePtr node = selected.Node(index);
    // Deliberate: an absent coordinate is 0 here, whatever a derived PointFromNode does. Kept for
    // compatibility: installed runtimes see it.
    points.push_back(types::Point{read(node, "x", 0), read(node, "y", 0)});
  }
  return selected.Count() > 0;
}

bool ProfileDoc::GetLine(types::Point (&line)[2], const std::string& xpath, DocumentNode* context) {
  std::vector<types::Point> points;
  GetPoints(points, xpath, context);
  if (points.size() < 2) return false;
  std::copy_n(points.begin(), 2, std::begin(line));
  return true;
}

bool ProfileDoc::GetRectangle(types::Point (&rect)[2], const std::string& xpath,
                              DocumentNode* context) {
  const Selection selected(m_impl->SearchContext(), context, xpath.c_str(), Selection::kFirst);
  if (selected.Count() == 0) return false;
  const CoordinateReader read;
  const xmlNodePtr node = selected.Node(0);
  rect[0].x = read(node, "left", rect[0].x);
  rect[0].y = read(node, "top", rect[0].y);
  rect[1].x = read(node, "right", rect[1].x);
  rect[1].y = read(node, "bottom", rect[1].y);
  return true;
}

}  // namespace analytics
