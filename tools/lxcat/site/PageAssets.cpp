#include "tools/lxcat/site/PageAssets.h"

namespace lxcat {

const char kPageStyle[] = R"(body{font-family:sans-serif;margin:1em 2em;color:#222}
nav a,nav span{margin-right:.3em}
table{border-collapse:collapse;margin-top:.5em}
th,td{border:1px solid #bbb;padding:2px 6px;text-align:left;vertical-align:top}
th{background:#eee}
td.number{text-align:right}
img{max-width:96px;max-height:96px;margin-right:4px}
ul.tree{padding-left:1.2em}
#search{margin:.5em 0;width:20em}
.count{color:#666})";

const char kSearchScript[] = R"((function () {
  var box = document.getElementById('search');
  var table = document.getElementById('sizes');
  if (!box || !table) return;
  var rows = table.tBodies[0].rows;
  var texts = null;
  box.addEventListener('input', function () {
    if (texts === null) {
      texts = [];
      for (var i = 0; i < rows.length; i++) texts.push(rows[i].textContent.toLowerCase());
    }
    var wanted = box.value.trim().toLowerCase();
    for (var j = 0; j < rows.length; j++) rows[j].hidden = wanted !== '' && texts[j].indexOf(wanted) < 0;
  });
})();)";

}  // namespace lxcat
