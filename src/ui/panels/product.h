#pragma once

#include <string>

namespace kzq {

/// What the panels say about the program itself.
struct Product {
    std::string version;  ///< "CFBundleShortVersionString", such as "2.1.0"; empty if unknown
    std::string website;  ///< https address of the maker's home page
};

/// What is shown for the home page: the host of its address, "www.kzq.example".
std::string websiteLabel(const Product& product);

}  // namespace kzq
