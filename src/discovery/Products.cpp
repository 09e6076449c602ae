#include "discovery/Products.h"

#include <algorithm>

namespace corvane {

namespace {

template <typename Condition>
const Product* firstProduct(Condition condition) {
  const auto found = std::find_if(products.begin(), products.end(), condition);
  return found == products.end() ? nullptr : &*found;
}

}  // namespace

const Product* productNamed(std::string_view name) {
  return firstProduct([name](const Product& each) { return each.name == name; });
}

const Product* productRecognised(AdapterFamily family, std::string_view registryText) {
  return firstProduct([family, registryText](const Product& each) {
    return each.family == family && each.registryText == registryText;
  });
}

}  // namespace corvane
