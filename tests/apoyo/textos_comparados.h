#pragma once

#include <string>
#include <utility>
#include <vector>

// What texts are held to, here and in each engine: which are the same, which aren't, and which
// comes first.

namespace apoyo {

inline const std::vector<std::string>& TextosEnOrden() {
  static const std::vector<std::string> textos = {
      "",     "\"",   "2",    "7", "a",  "á", "aa", "ab", "áb", "abc", "c", "ç",
      "ca",   "d",    "e",    "É", "ea", "n", "na", "nz", "ñ",  "ña",  "o", "pena",
      "peña", "peor", "pesa", "u", "ú",  "ü", "ua", "z",  "zz", "×",   "ĸ"};
  return textos;
}

/// In each of these all are the same.
inline const std::vector<std::vector<std::string>>& TextosIguales() {
  static const std::vector<std::vector<std::string>> textos = {
      {"Año", "AÑO", "año"}, {"PINGÜINO", "pingüino"},
      {"ÇÀÉÞØ", "çàéþø"},    {"Ÿ", "ÿ"},
      {"ŁŹŁŃĞ", "łźłńğ"},    {"Œ", "œ"},
      {"zZ", "Zz"}};
  return textos;
}

/// Some have bytes in them that are no UTF-8.
inline const std::vector<std::pair<std::string, std::string>>& TextosDistintos() {
  static const std::vector<std::pair<std::string, std::string>> textos = {
      {"a", "á"}, {"á", "à"}, {"n", "ñ"},    {"ñ", "ń"},      {"c", "ç"},
      {"i", "ı"}, {"İ", "ı"}, {"×", "÷"},    {"ß", "ÿ"},      {"a", "ª"},
      {"@", "`"}, {"[", "{"}, {"\xFF", "ÿ"}, {"", " "},       {"a", "a "},
      {"ĸ", "Ĺ"}, {"ĸ", "ķ"}, {"\xC3", "Ã"}, {"\xC3", "\xC4"}};
  return textos;
}

}  // namespace apoyo
