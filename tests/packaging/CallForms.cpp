// Which form a call means, where a text form and an integer form stand side by side. Sources pass 0
// or NULL for "no context", so neither may turn a text into a number. Only compiled, never run.
#include <cstddef>
#include <string>
#include <type_traits>

#include <analytics/ProfileDoc.h>

namespace analytics {

using Text = std::string;
using Integer = int;
struct Refused;

// Says what `call` on a document gives; `node` and `number` are variables in it.
#define CALL(name, call, Form)                                                                     \
  template <typename Subject>                                                                      \
  auto name(Subject* document, DocumentNode* node, int number)->decltype(document->call);          \
  Refused name(...);                                                                               \
  static_assert(std::is_same<Form, decltype(name(static_cast<ProfileDoc*>(nullptr),                \
                                                 static_cast<DocumentNode*>(nullptr), 0))>::value, \
                "The call must mean " #Form ": " #call)

CALL(ValueOfPathAlone, GetSingleValue("p"), Refused);
CALL(ValueWithZero, GetSingleValue("p", 0), Text);
CALL(ValueWithNull, GetSingleValue("p", NULL), Text);
CALL(ValueWithNullptr, GetSingleValue("p", nullptr), Text);
CALL(ValueWithNode, GetSingleValue("p", node), Text);
CALL(ValueWithDefaultAlone, GetSingleValue("p", 7), Refused);
CALL(ValueWithVariableAlone, GetSingleValue("p", number), Refused);
CALL(ValueWithDefaultAndZero, GetSingleValue("p", 7, 0), Integer);
CALL(ValueWithDefaultAndNull, GetSingleValue("p", 7, NULL), Integer);
CALL(ValueWithDefaultAndNullptr, GetSingleValue("p", 7, nullptr), Integer);
CALL(ValueWithDefaultAndNode, GetSingleValue("p", 7, node), Integer);
CALL(ValueWithZeroAndZero, GetSingleValue("p", 0, 0), Integer);
CALL(ValueWithVariableAndNode, GetSingleValue("p", number, node), Integer);

CALL(ItemOfNameAlone, GetSimpleItemValue("n"), Refused);
CALL(ItemWithZero, GetSimpleItemValue("n", 0), Text);
CALL(ItemWithNull, GetSimpleItemValue("n", NULL), Text);
CALL(ItemWithNullptr, GetSimpleItemValue("n", nullptr), Text);
CALL(ItemWithNode, GetSimpleItemValue("n", node), Text);
CALL(ItemWithZeroAndPath, GetSimpleItemValue("n", 0, true), Text);
CALL(ItemWithNullAndPath, GetSimpleItemValue("n", NULL, false), Text);
CALL(ItemWithNullptrAndPath, GetSimpleItemValue("n", nullptr, true), Text);
CALL(ItemWithNodeAndPath, GetSimpleItemValue("n", node, true), Text);
CALL(ItemWithDefaultAlone, GetSimpleItemValue("n", 5), Refused);
CALL(ItemWithVariableAlone, GetSimpleItemValue("n", number), Refused);
CALL(ItemWithDefaultAndNode, GetSimpleItemValue("n", 5, node), Refused);
CALL(ItemWithVariableAndNode, GetSimpleItemValue("n", number, node), Refused);
CALL(ItemWithDefaultZeroAndPath, GetSimpleItemValue("n", 5, 0, true), Integer);
CALL(ItemWithDefaultNullAndPath, GetSimpleItemValue("n", 5, NULL, true), Integer);
CALL(ItemWithDefaultNullptrAndPath, GetSimpleItemValue("n", 5, nullptr, true), Integer);
CALL(ItemWithDefaultNodeAndPath, GetSimpleItemValue("n", 5, node, true), Integer);
CALL(ItemWithZeroZeroAndPath, GetSimpleItemValue("n", 0, 0, true), Integer);
CALL(ItemWithVariableNodeAndPath, GetSimpleItemValue("n", number, node, false), Integer);

// A pointer is a truth value too, but nobody who gives a node in this place means one.
CALL(ItemWithZeroAndNode, GetSimpleItemValue("n", 0, node), Refused);
CALL(ItemWithNullAndNode, GetSimpleItemValue("n", NULL, node), Refused);
CALL(ItemWithNullptrAndNode, GetSimpleItemValue("n", nullptr, node), Refused);
CALL(ItemWithNodeAndNode, GetSimpleItemValue("n", node, node), Refused);
CALL(ItemWithZeroAndText, GetSimpleItemValue("n", 0, "v"), Refused);
CALL(ItemWithZeroAndNullptr, GetSimpleItemValue("n", 0, nullptr), Refused);
// A number for the path is one as ever: only a pointer is refused there.
CALL(ItemWithNodeAndZero, GetSimpleItemValue("n", node, 0), Text);
CALL(ItemWithNodeAndNull, GetSimpleItemValue("n", node, NULL), Text);
CALL(ItemWithNodeAndNumber, GetSimpleItemValue("n", node, number), Text);
CALL(ItemWithZeroAndZero, GetSimpleItemValue("n", 0, 0), Text);

}  // namespace analytics
