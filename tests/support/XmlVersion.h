#pragma once

#include <libxml/xmlversion.h>

namespace tests {

// What the supported versions of libxml2 do differently where this library passes it on. Seen with
// 2.9.14 and 2.15.4.

/// The oldest version that is supported.
constexpr bool kIsOldestXml = LIBXML_VERSION == 20914;

/// 2.15 or newer: without memory, most of its calls give what they had before, or nothing.
constexpr bool kIsXml215 = LIBXML_VERSION >= 21500;

/// Whether opening also tries a file's name with its escapes ("%20") resolved, as saving always
/// does.
constexpr bool kXmlOpensResolvedNames = !kIsXml215;

/// Whether a "&" that starts no reference empties the whole text, with a report; else the "&" alone
/// is left out.
constexpr bool kXmlEmptiesTextAtAmpersand = !kIsXml215;

/// Whether a node's text is read with the entities of the document that is asked; else with those
/// of its own.
constexpr bool kXmlReadsWithEntitiesOfTheDocumentAsked = !kIsXml215;

}  // namespace tests
