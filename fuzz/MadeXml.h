#pragma once

#include <string>

#include "fuzz/Input.h"

namespace fuzz {

/// Builds a well-formed document from an input: nested elements with attributes, namespaces, texts,
/// comments and sections, of at most `steps` pieces.
std::string MadeXml(Input& input, std::size_t steps);

/// Replaces what has a meaning in XML by references, and drops bytes that no document may hold.
std::string Escaped(const std::string& text);

}  // namespace fuzz
