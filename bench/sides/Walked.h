#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "bench/sides/ByHand.h"

namespace bench {

/// How quick libxml2's tree can be read at all: walks that know the shape of what they look for.
/// Names and short texts are in the document's dictionary, which the library cannot have. For the
/// rest see ByHand.
class Walked : public ByHand {
 public:
  static constexpr char kName[] = "limit";

  using Nodes = std::vector<Node>;

  /// A path of elements, with or without a condition, made once.
  class Path {
   public:
    explicit Path(const std::string& text);

    bool IsAnywhere() const { return m_isAnywhere; }
    std::size_t Depth() const { return m_steps.size(); }

    /// Whether an element is one that a step stands for.
    bool Matches(const xmlNode* node, std::size_t step) const;

   private:
    struct Step {
      const char* uri;
      std::string name, attribute, value;
    };

    static Step StepOf(std::string_view text);

    bool m_isAnywhere;
    std::vector<Step> m_steps;
  };

  static Walked Parse(const std::string& text);
  static Walked Load(const std::string& path);

  Nodes Select(Node from, const Path& path) const;
  Node First(Node from, const Path& path) const;

  static std::string Attribute(Node node, const char* name);
  static int Number(Node node, const char* name);
  static int TextNumber(Node node, int fallback);

  /// Value of a variable of a settings file.
  std::string VariableValue(const std::string& name) const;

 private:
  using ByHand::ByHand;
};

}  // namespace bench
