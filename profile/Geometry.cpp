#include <algorithm>
#include <iterator>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

#include "document/DocumentImpl.h"
#include "document/Selection.h"

namespace analytics {

bool ProfileDoc::PointFromNode(DocumentNode* node, types::Point& point) {
  if (!node) return false;
  point = types::Point{node->GetProperty("x", point.x), node->GetProperty("y", point.y)};
  return true;
}

bool ProfileDoc::GetPoints(std::vector<types::Point>& points, const std::string& xpath,
                           DocumentNode* context) {
  const Selection selected(m_impl->SearchContext(), context, xpath);
  for (int index = 0; index < selected.Count(); ++index) {
    DocumentNode node(selected.Node(index));
    // Deliberate: an absent coordinate is 0 here, whatever a derived PointFromNode does. Kept for
    // compatibility: installed runtimes see it.
    points.push_back(types::Point{node.GetProperty("x", 0), node.GetProperty("y", 0)});
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
  const Selection selected(m_impl->SearchContext(), context, xpath, Selection::kFirst);
  if (selected.Count() == 0) return false;
  DocumentNode node(selected.Node(0));
  rect[0].x = node.GetProperty("left", rect[0].x);
  rect[0].y = node.GetProperty("top", rect[0].y);
  rect[1].x = node.GetProperty("right", rect[1].x);
  rect[1].y = node.GetProperty("bottom", rect[1].y);
  return true;
}

}  // namespace analytics
