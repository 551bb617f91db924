#include <algorithm>
#include <iterator>
#include <memory>

#include <analytics/DocumentNode.h>
#include <analytics/ProfileDoc.h>

#include "document/OwnedNodes.h"

namespace analytics {

bool ProfileDoc::PointFromNode(DocumentNode* node, types::Point& point) {
  if (!node) return false;
  point = types::Point{node->GetProperty("x", point.x), node->GetProperty("y", point.y)};
  return true;
}

bool ProfileDoc::GetPoints(std::vector<types::Point>& points, const std::string& xpath,
                           DocumentNode* context) {
  const OwnedNodes nodes(SelectNodes(xpath, context));
  // Deliberate: an absent coordinate is 0 here, whatever a derived PointFromNode does. Kept for
  // compatibility: installed runtimes see it.
  std::transform(nodes.begin(), nodes.end(), std::back_inserter(points), [](DocumentNode* node) {
    return types::Point{node->GetProperty("x", 0), node->GetProperty("y", 0)};
  });
  return nodes.begin() != nodes.end();
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
  const std::unique_ptr<DocumentNode> node(SelectNode(xpath, context));
  if (!node) return false;
  rect[0].x = node->GetProperty("left", rect[0].x);
  rect[0].y = node->GetProperty("top", rect[0].y);
  rect[1].x = node->GetProperty("right", rect[1].x);
  rect[1].y = node->GetProperty("bottom", rect[1].y);
  return true;
}

}  // namespace analytics
