#pragma once

#include <vector>

#include <libxml/tree.h>

#include <analytics/Document.h>

namespace settingsctl {

/// The line on which an element's tag begins, also beyond 65535, if it was set; else the line that
/// libxml2 knows, which is that of the tag's end.
int LineOf(const xmlNode* element);

/// Keeps a line with an element.
void SetLine(xmlNode* element, int line);

/// An element and all elements below it, in document order; none for null. What entity references
/// stand for is left out, as the library leaves it out.
std::vector<xmlNode*> AllElements(xmlNode* root);

/// All elements of the library's own tree, in document order.
std::vector<xmlNode*> AllElements(analytics::Document& document);

/// Gives the elements of the library's tree the lines of a tree of the same text.
void NumberLines(analytics::Document& document, xmlDoc* lines);

}  // namespace settingsctl
