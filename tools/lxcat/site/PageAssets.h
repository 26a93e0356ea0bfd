// What every page of the site carries inline: its style sheet and the script
// of the search box. The site must open from a folder with no server and no
// network, so nothing is linked from outside the page. Constants; thread-safe.
#pragma once

namespace lxcat {

// The content of the page's <style> element.
extern const char kPageStyle[];

// The content of the page's <script> element, placed at the end of <body>.
// It keeps each row's lower-cased text the first time the box is used, and on
// every input hides the rows of table#sizes that do not contain what was
// typed; an empty box shows every row again.
extern const char kSearchScript[];

}  // namespace lxcat
