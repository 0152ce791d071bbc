#pragma once

#include "document/MenuDocument.h"

#include <memory>

// Documents for tests and benchmarks, built through the document's own tables.
namespace SampleDocuments {

// A small menu that uses every table and field that the files store: products with commas and
// accents, two modifier lists attached to a product, titles, notes, a picture group, five languages,
// changed print settings.
std::unique_ptr<MenuDocument> richMenu();

// A page to print: on page 1 a title, three products (one without a text in the second language) and a
// note in front; behind, on a yellow side, the group "Sobremesas" over rows 8 to 11 in blue, ended by the
// group "Vinhos" on row 12. One product each on pages 13 and 14. Texts in languages 1 and 2.
std::unique_ptr<MenuDocument> printedMenu();

// Every table at its limit: 10,000 products, 101 lists of 101 options, 101 products with 11 lists,
// every line bound, every language row filled with 90-character texts.
std::unique_ptr<MenuDocument> largestMenu();

// Appends a product the way a hand-made one looks (AltCode equal to Code).
void addPlu(MenuDocument& document, const QString& code, const QString& description, const QString& price);

} // namespace SampleDocuments
