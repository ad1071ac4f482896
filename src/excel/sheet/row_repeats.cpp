// Areas are cut and joined as rectangles, never cell by cell: an area that the copies cut leaves at most a part above
// and a part below, and the copies of a part that is as high as the source are one area, which joins what was left
// above it. A hundred thousand copies of a row's rule are one area again. Only parts lower than the source, which leave
// gaps between their copies, and merged cells, which cannot join, are listed for each copy.
#include "excel/sheet/row_repeats.h"

namespace zorkanca::excel {

namespace {

// Adds an area, as the lower part of one that is there where possible.
void AddBelow(std::vector<CellArea>& areas, std::size_t upper, const CellArea& area) {
  if (upper < areas.size()) {
    CellArea& above = areas[upper];
    if (above.left == area.left && above.right == area.right && above.bottom + 1 == area.top) {
      above.bottom = area.bottom;
      return;
    }
  }
  areas.push_back(area);
}

}  // namespace

std::vector<CellArea> RepeatAreas(const std::vector<CellArea>& areas, const RowRepeat& repeat) {
  std::vector<CellArea> result;
  std::vector<CellArea> copied;
  std::vector<std::size_t> places;  // of what is left of the area that a part was copied from
  for (const CellArea& area : areas) {
    const std::size_t place = result.size();
    if (area.top < repeat.first)
      result.push_back({area.top, area.left, std::min(area.bottom, repeat.first - 1), area.right});
    if (area.bottom > repeat.last())
      result.push_back({std::max(area.top, repeat.last() + 1), area.left, area.bottom, area.right});
    if (const std::optional<CellArea> part = Common(area, repeat.Source())) {
      copied.push_back(*part);
      places.push_back(place);
    }
  }
  for (std::size_t i = 0; i < copied.size(); ++i) {
    const CellArea first = copied[i].Moved(repeat.first - repeat.top, 0);
    if (copied[i].RowCount() == repeat.rows) {
      AddBelow(result, places[i], {first.top, first.left, repeat.last(), first.right});
    } else {
      for (std::int32_t copy = 0; copy < repeat.copies; ++copy) result.push_back(first.Moved(copy * repeat.rows, 0));
    }
  }
  return result;
}

std::vector<CellArea> RepeatMerges(const std::vector<CellArea>& merges, const RowRepeat& repeat) {
  std::vector<CellArea> result;
  const CellArea target = repeat.Target();
  for (const CellArea& merge : merges) {
    if (!Common(merge, target)) {
      result.push_back(merge);
    } else if (merge.top < target.top) {
      const CellArea above{merge.top, merge.left, target.top - 1, merge.right};
      if (above.RowCount() > 1 || above.ColumnCount() > 1) result.push_back(above);
    }
  }
  for (const CellArea& merge : merges) {
    if (!repeat.Source().Holds(merge)) continue;
    for (std::int32_t copy = 0; copy < repeat.copies; ++copy) {
      result.push_back(merge.Moved(repeat.first - repeat.top + copy * repeat.rows, 0));
    }
  }
  return result;
}

std::vector<CellArea> ParseAreas(std::string_view list) {
  std::vector<CellArea> areas;
  while (!list.empty()) {
    const std::size_t end = std::min(list.find_first_of(" \t\r\n"), list.size());
    if (const std::optional<CellArea> area = ParseArea(list.substr(0, end))) areas.push_back(*area);
    list.remove_prefix(std::min(end + 1, list.size()));
  }
  return areas;
}

std::string AreasText(const std::vector<CellArea>& areas) {
  std::string text;
  for (const CellArea& area : areas) {
    if (!text.empty()) text.push_back(' ');
    AppendArea(text, area);
  }
  return text;
}

}  // namespace zorkanca::excel
