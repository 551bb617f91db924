/* Says whether a recipe is well-formed BitBake, by the grammar that it is linked with:
   bitbake-syntax RECIPE. */

#include <stdio.h>
#include <stdlib.h>

#include <tree_sitter/api.h>

const TSLanguage* tree_sitter_bitbake(void);

/* The first place that the grammar does not know, within a tree that has one. */
static TSPoint FirstError(TSNode node) {
  uint32_t count = ts_node_child_count(node);
  for (uint32_t i = 0; i < count; ++i) {
    TSNode child = ts_node_child(node, i);
    if (ts_node_has_error(child) && !ts_node_is_missing(child)) return FirstError(child);
  }
  return ts_node_start_point(node);
}

int main(int count, char** arguments) {
  static char text[1 << 16];
  FILE* file = count == 2 ? fopen(arguments[1], "rb") : NULL;
  if (!file) return 2;
  const size_t length = fread(text, 1, sizeof text, file);
  fclose(file);

  TSParser* parser = ts_parser_new();
  if (!ts_parser_set_language(parser, tree_sitter_bitbake())) return 2;
  TSTree* tree = ts_parser_parse_string(parser, NULL, text, (uint32_t)length);
  const TSNode root = ts_tree_root_node(tree);
  const int wrong = ts_node_has_error(root);
  if (wrong) printf("%s:%u: not BitBake\n", arguments[1], FirstError(root).row + 1);
  ts_tree_delete(tree);
  ts_parser_delete(parser);
  return wrong;
}
