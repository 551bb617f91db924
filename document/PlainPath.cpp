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

/// What a name consists of, each byte at its own place and no other: reading names takes a good
/// part of a query's time.
constexpr char kNameBytes[256] =
    "--------------------------------"
    "--------------.-0123456789------"
    "-ABCDEFGHIJKLMNOPQRSTUVWXYZ----_"
    "-abcdefghijklmnopqrstuvwxyz---";

bool IsNameByte(char byte) { return kNameBytes[static_cast<unsigned char>(byte)] == byte; }

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

  /// Empty where no name starts, or one that is too long.
  PathText Name() {
    const char* const begin = m_at;
    const char* end = begin;
    if (IsNameStart(*end))
      while (IsNameByte(*end)) ++end;
    if (end - begin > kLongestName) return PathText();
    m_at = end;
    return {begin, static_cast<std::size_t>(end - begin)};
  }

  bool Step(PathStep& step) {
    step = PathStep();
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
    const char* const begin = m_at + 1;
    const char* end = begin;
    while (*end >= ' ' && *end <= '~' && *end != quote) ++end;
    value = {begin, static_cast<std::size_t>(end - begin)};
    m_at = end;
    return Skip(quote);
  }

  /// Looked up once where all names have the same prefix.
  const char* Uri(const PathText& prefix) {
    if (m_uri && prefix.Equals(m_prefix)) return m_uri;
    const std::string text(prefix.begin, prefix.length);
    m_uri = reinterpret_cast<const char*>(xmlXPathNsLookup(m_searchContext, XmlText(text)));
    m_prefix = prefix;
    return m_uri;
  }

  const char* m_at;
  const xmlXPathContextPtr m_searchContext;
  PathText m_prefix{};          // the last one
  const char* m_uri = nullptr;  // that of m_prefix
};

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

/// Whether the first look tells that a node is not what a step selects, as it does of most.
bool IsOther(const xmlNode* node, const PathStep& step) {
  return node->type == XML_ELEMENT_NODE && !step.name.Equals(node->name);
}

/// Whether something that is no element certainly holds none that libxml2 would find: that looks
/// into whatever has children, declarations of entities apart.
bool HoldsNoElement(const xmlNode* node) {
  switch (node->type) {
    case XML_CDATA_SECTION_NODE:
    case XML_ENTITY_REF_NODE:
    case XML_PI_NODE:
    case XML_COMMENT_NODE:
      return !node->children || node->children->type == XML_ENTITY_DECL;
    case XML_DOCUMENT_NODE:  // above the root
    case XML_DTD_NODE:
      return true;
    default:
      return false;
  }
}

/// Whether a namespace is the one of `uri`, or none where that is null. A namespace without URI is
/// none for some paths of libxml2 and one of its own for others.
PathAnswer IsIn(const xmlNs* ns, const char* uri) {
  if (!ns) return uri ? PathAnswer::kNo : PathAnswer::kYes;
  if (!ns->href) return PathAnswer::kUncertain;
  const char* const href = reinterpret_cast<const char*>(ns->href);
  return uri && std::strcmp(href, uri) == 0 ? PathAnswer::kYes : PathAnswer::kNo;
}

/// Whether a node is an element that a step selects, wherever it stands.
PathAnswer Match(const xmlNode* node, const PathStep& step) {
  if (IsOther(node, step)) return PathAnswer::kNo;
  if (node->type != XML_ELEMENT_NODE)
    return HoldsNoElement(node) ? PathAnswer::kNo : PathAnswer::kUncertain;
  const PathAnswer isInNamespace = IsIn(node->ns, step.uri);
  return isInNamespace == PathAnswer::kYes ? MeetsCondition(node, step) : isInNamespace;
}

/// The first from a node on that is no text; about half of all nodes are the blanks between
/// elements.
xmlNodePtr SkipTexts(xmlNodePtr node) {
  while (node && node->type == XML_TEXT_NODE) node = node->next;
  return node;
}

/// The node after `node` in a walk below `top`, and its depth: the first below it, where the walk
/// is to go there and there is one, or else the next that is not below it. At the end the depth is
/// 0 again, unless a node does not know its parent.
xmlNodePtr NextNode(xmlNodePtr node, const xmlNode* top, bool goesDown, int& depth) {
  xmlNodePtr next = goesDown ? SkipTexts(node->children) : nullptr;
  if (next) ++depth;
  for (; !next && node && node != top; node = node->parent) {
    next = SkipTexts(node->next);
    if (!next) --depth;
  }
  return next;
}

}  // namespace

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

bool PlainPath::Select(xmlNodePtr start, bool firstOnly, NodeList& found) const {
  if (!m_isPlain) return false;
  if (m_isAnywhere) return WalkAll(firstOnly, found);
  return start && start->type == XML_ELEMENT_NODE && WalkSteps(start, firstOnly, found);
}

/// Goes through the whole document, parents first.
bool PlainPath::WalkAll(bool firstOnly, NodeList& found) const {
  auto* const top = reinterpret_cast<xmlNodePtr>(m_document);
  const PathStep& last = m_steps[m_count - 1];
  int depth = 0;
  for (xmlNodePtr node = NextNode(top, top, true, depth); node;) {
    const PathAnswer answer = IsOther(node, last) ? PathAnswer::kNo : MatchUpwards(node);
    if (answer == PathAnswer::kUncertain || depth > kDeepest) return false;
    if (answer == PathAnswer::kYes) Take(node, found);
    if (firstOnly && found.Count() > 0) return true;
    node = NextNode(node, top, node->type == XML_ELEMENT_NODE, depth);
  }
  return depth == 0;
}

/// Goes through what the steps select below `top`, and no deeper.
bool PlainPath::WalkSteps(xmlNodePtr top, bool firstOnly, NodeList& found) const {
  int depth = 0;
  for (xmlNodePtr node = NextNode(top, top, true, depth); node;) {
    const PathAnswer answer = Match(node, m_steps[depth - 1]);
    if (answer == PathAnswer::kUncertain) return false;
    const bool isStep = answer == PathAnswer::kYes;
    if (isStep && depth == m_count) Take(node, found);
    if (firstOnly && found.Count() > 0) return true;
    node = NextNode(node, top, isStep && depth < m_count, depth);
  }
  return depth == 0;
}

/// Whether a node is what the last step selects, and those above it what the steps before select.
PathAnswer PlainPath::MatchUpwards(const xmlNode* node) const {
  int step = m_count - 1;
  PathAnswer answer = Match(node, m_steps[step]);
  while (step > 0 && answer == PathAnswer::kYes) {
    node = node->parent;
    answer = node ? Match(node, m_steps[--step]) : PathAnswer::kUncertain;
  }
  return answer;
}

void PlainPath::Take(xmlNodePtr element, NodeList& found) const {
  if (m_attribute.IsEmpty()) return found.Add(element);
  xmlAttrPtr attribute = FindAttribute(element->properties, m_attribute);
  for (; attribute; attribute = FindAttribute(attribute->next, m_attribute))
    found.Add(reinterpret_cast<xmlNodePtr>(attribute));
}

}  // namespace analytics
