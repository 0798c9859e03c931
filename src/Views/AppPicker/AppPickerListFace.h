#pragma once

namespace tolvar {

class AppPickerList;

/// What assistive technology knows of an AppPickerList: a list of items that can be checked, each
/// called by its application's name, beneath headings. Items out of view are known too.
namespace AppPickerListFace {

/// To be called before the first list is shown.
void install();
void rowsChanged(AppPickerList& list);
void checkChanged(AppPickerList& list, int row);
/// The keyboard has gone to another row.
void currentChanged(AppPickerList& list);

} // namespace AppPickerListFace
} // namespace tolvar
