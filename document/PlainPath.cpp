#include "document/PlainPath.h"

#include <cstddef>
#include <cstring>

#include <libxml/xpathInternals.h>

#include "document/XmlText.h"

namespace analytics {
namespace {

bool IsNameStart(char byte) {
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_';
}

bool IsNameByte(char byte) {
  return IsNameStart(byte) || (byte >= '0' && byte <= '9') || byte == '.' || byte == '-';
}

/// Longer names are left to libxml2, which has its own limits of them.
constexpr std::ptrdiff_t kLongestName = 1000;

/// What lies deeper is left to libxml2, which looks no further than 10,000 for some paths.
constexpr int kDeepest = 1000;

/// Reads a path from its start, piece by piece. Only ASCII is taken, and no blanks: whether another
/// character may stand somewhere is libxml2's to say.
class PathReader {
 public:
  PathReader(const char* text, xmlXPathContextPtr searchContext)
      : m_at(text), m_searchContext(searchContext) {}

  bool IsAtEnd() const { return *m_at == '\0'; }

  bool Skip(char byte) {
    if (*m_at != byte) return false;
    ++m_at;
    return true;
  }

  /// Empty where no name starts. A part of a name that is too long, which nothing plain follows.
  PathText Name() {
    const char* const begin = m_at;
    if (IsNameStart(*m_at))
      while (IsNameByte(*m_at) && m_at - begin < kLongestName) ++m_at;
    return {begin, static_cast<std::size_t>(m_at - begin)};
  }

  bool Step(PathStep& step) {
    step.name = Name();
    if (!step.name.IsEmpty() && Skip(':')) {
      step.uri = Uri(step.name);
      if (!step.uri) return false;  // which libxml2 is to report
      step.name = Name();
    }
    return !step.name.IsEmpty() && (!Skip('[') || Condition(step));
  }

 private:
  bool Condition(PathStep& step) {
    if (!Skip('@')) return false;
    step.attribute = Name();
    return !step.attribute.IsEmpty() && Skip('=') && Literal(step.value) && Skip(']');
  }

  bool Literal(PathText& value) {
    const char quote = *m_at;
    if (quote != '\'' && quote != '"') return false;
    const char* const begin = ++m_at;
    while (*m_at >= ' ' && *m_at <= '~' && *m_at != quote) ++m_at;
    value = {begin, static_cast<std::size_t>(m_at - begin)};
    return Skip(quote);
  }

  const char* Uri(const PathText& prefix) const {
    const std::string text(prefix.begin, prefix.length);
    return reinterpret_cast<const char*>(xmlXPathNsLookup(m_searchContext, XmlText(text)));
  }

  const char* m_at;
  const xmlXPathContextPtr m_searchContext;
};

/// Whether a node is in the namespace `uri`. One without URI is none for some paths of libxml2 and
/// one of its own for others.
PathAnswer IsIn(const xmlNode* node, const char* uri) {
  if (!node->ns) return uri ? PathAnswer::kNo : PathAnswer::kYes;
  if (!node->ns->href) return PathAnswer::kUncertain;
  const char* const href = reinterpret_cast<const char*>(node->ns->href);
  return uri && std::strcmp(href, uri) == 0 ? PathAnswer::kYes : PathAnswer::kNo;
}

/// The first attribute from `attribute` on that a name without prefix stands for: as libxml2 has
/// it, also one in a namespace that has no prefix.
xmlAttrPtr FindAttribute(xmlAttrPtr attribute, const PathText& name) {
  while (attribute && (!name.Equals(attribute->name) || (attribute->ns && attribute->ns->prefix)))
    attribute = attribute->next;
  return attribute;
}

/// Whether an attribute's value is no text at all or one whole text.
bool IsPlain(const xmlAttr* attribute) {
  const xmlNode* const text = attribute->children;
  return !text || (text->type == XML_TEXT_NODE && !text->next && text->content);
}

PathAnswer MeetsCondition(const xmlNode* node, const PathStep& step) {
  if (step.attribute.IsEmpty()) return PathAnswer::kYes;
  xmlAttrPtr attribute = FindAttribute(node->properties, step.attribute);
  for (; attribute; attribute = FindAttribute(attribute->next, step.attribute)) {
    if (!IsPlain(attribute)) return PathAnswer::kUncertain;
    const xmlNode* const text = attribute->children;
    if (text ? step.value.Equals(text->content) : step.value.IsEmpty()) return PathAnswer::kYes;
  }
  return PathAnswer::kNo;
}

/// Whether a node is an element that a step selects, wherever it stands.
PathAnswer Match(const xmlNode* node, const PathStep& step) {
  switch (node->type) {
    case XML_ELEMENT_NODE:
      break;
    case XML_TEXT_NODE:
    case XML_CDATA_SECTION_NODE:
    case XML_ENTITY_REF_NODE:
    case XML_PI_NODE:
    case XML_COMMENT_NODE:
    case XML_DOCUMENT_NODE:  // above the root
    case XML_DTD_NODE:
      return PathAnswer::kNo;
    default:
      return PathAnswer::kUncertain;  // libxml2 may find elements within it
  }
  if (!step.name.Equals(node->name)) return PathAnswer::kNo;
  const PathAnswer isInNamespace = IsIn(node, step.uri);
  return isInNamespace == PathAnswer::kYes ? MeetsCondition(node, step) : isInNamespace;
}

}  // namespace

bool PathText::Equals(const xmlChar* text) const {
  const char* const other = reinterpret_cast<const char*>(text);
  return other && std::strncmp(begin, other, length) == 0 && other[length] == '\0';
}

PlainPath::PlainPath(const char* text, xmlXPathContextPtr searchContext)
    : m_document(searchContext->doc), m_isPlain(Read(text, searchContext)) {}

bool PlainPath::Read(const char* text, xmlXPathContextPtr searchContext) {
  PathReader reader(text, searchContext);
  m_isAnywhere = reader.Skip('/');
  if (m_isAnywhere && !reader.Skip('/')) return false;
  while (m_count < kMostSteps && reader.Step(m_steps[m_count])) {
    ++m_count;
    if (!reader.Skip('/')) return reader.IsAtEnd();
    if (!reader.Skip('@')) continue;
    m_attribute = reader.Name();
    return !m_attribute.IsEmpty() && reader.IsAtEnd();
  }
  return false;
}

bool PlainPath::Select(xmlNodePtr start, bool firstOnly, std::vector<xmlNodePtr>& found) const {
  if (!m_isPlain) return false;
  if (m_isAnywhere) return Walk(reinterpret_cast<xmlNodePtr>(m_document), firstOnly, found);
  return start && start->type == XML_ELEMENT_NODE && Walk(start, firstOnly, found);
}

/// Goes through what may be selected below `top`, parents first, and no deeper than it must.
bool PlainPath::Walk(xmlNodePtr top, bool firstOnly, std::vector<xmlNodePtr>& found) const {
  int depth = 1;
  for (xmlNodePtr node = top->children; node;) {
    const PathAnswer answer = m_isAnywhere ? MatchUpwards(node) : Match(node, m_steps[depth - 1]);
    if (answer == PathAnswer::kUncertain) return false;
    const bool isStep = answer == PathAnswer::kYes;
    if (isStep && (m_isAnywhere || depth == m_count)) Take(node, found);
    if (firstOnly && !found.empty()) return true;
    const bool leadsOn = m_isAnywhere ? node->type == XML_ELEMENT_NODE : isStep && depth < m_count;
    if (leadsOn && node->children) {
      if (++depth > kDeepest) return false;
      node = node->children;
      continue;
    }
    for (; node != top && !node->next; --depth) node = node->parent;
    node = node == top ? nullptr : node->next;
  }
  return true;
}

/// Whether a node is what the last step selects, and those above it what the steps before select.
PathAnswer PlainPath::MatchUpwards(const xmlNode* node) const {
  PathAnswer answer = PathAnswer::kYes;
  for (int step = m_count; step > 0 && answer == PathAnswer::kYes; node = node->parent)
    answer = Match(node, m_steps[--step]);
  return answer;
}

void PlainPath::Take(xmlNodePtr element, std::vector<xmlNodePtr>& found) const {
  if (m_attribute.IsEmpty()) return found.push_back(element);
  xmlAttrPtr attribute = FindAttribute(element->properties, m_attribute);
  for (; attribute; attribute = FindAttribute(attribute->next, m_attribute))
    found.push_back(reinterpret_cast<xmlNodePtr>(attribute));
}

}  // namespace analytics
