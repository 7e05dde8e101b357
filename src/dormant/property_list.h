#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kzq {

/// The members of a property-list dictionary whose values are strings.
using PropertyTexts = std::map<std::string, std::string>;

/// The elements of a property list in XML whose root is an array; an element that is not a dictionary is
/// empty. Nothing if the document is broken, has another root or declares entities. Any thread.
std::optional<std::vector<PropertyTexts>> propertyListArray(std::span<const std::uint8_t> document);

}  // namespace kzq
