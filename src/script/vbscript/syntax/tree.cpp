#include "script/vbscript/syntax/tree.h"

namespace kestrun::vbs {
namespace {

size_t BytesOf(const ProcedureTree& tree) {
  return LiveBytes::Block(sizeof tree) + LiveBytes::BlockOf(tree.parameters) + LiveBytes::BlockOf(tree.locals) +
         LiveBytes::BlockOf(tree.constants) + LiveBytes::BlockOf(tree.assigned) + LiveBytes::BlockOf(tree.redimmed);
}

template <class Trees>
size_t BytesOfAll(const Trees& procedures) {
  size_t bytes = LiveBytes::BlockOf(procedures);
  for (const auto& procedure : procedures) bytes += BytesOf(*procedure);
  return bytes;
}

}  // namespace

void Module::CountBytes() {
  size_t total = sizeof(Module) + LiveBytes::Block(source.text().size()) + LiveBytes::BlockOf(literals) +
                 LiveBytes::BlockOf(variables) + LiveBytes::BlockOf(constants) + LiveBytes::BlockOf(assigned) +
                 LiveBytes::BlockOf(redimmed) + LiveBytes::BlockOf(statements) + LiveBytes::BlockOf(classes) +
                 BytesOfAll(procedures);
  for (const auto& tree : classes) {
    total += LiveBytes::Block(sizeof *tree) + LiveBytes::BlockOf(tree->fields) + BytesOfAll(tree->procedures);
  }
  bytes.Set(total);
}

}  // namespace kestrun::vbs
