#include "xmltemplate/template_markers.h"

#include "xmltemplate/markers.h"

namespace zorkanca {

std::vector<TemplateField> MarkersOf(TextView text) {
  constexpr TextView kEnd = u"?>";
  TemplateFieldList markers;
  for (std::size_t at = 0; (at = text.find(u"<?", at)) != TextView::npos; at += 2) {
    if (MarkerStartAt(text.substr(at)) != MarkerStart::kMarker) continue;
    const TextView marker = text.substr(at, text.find(kEnd, at) - at);
    const std::size_t open = marker.find(u'#');
    const std::size_t close = marker.find(u'#', open + 1);
    if (open == TextView::npos || close == TextView::npos) continue;
    markers.Add(TemplateFieldKind::kMarker, marker.substr(open + 1, close - open - 1));
  }
  return markers.Take();
}

}  // namespace zorkanca
