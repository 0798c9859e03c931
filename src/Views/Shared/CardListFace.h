#pragma once

namespace tolvar {

class CardList;

/// What assistive technology knows of a CardList: a list of all its rows. A row out of view has a
/// name and the actions of the row; asked to act, it is brought into view first.
namespace CardListFace {

/// To be called before the first list is shown.
void install();
void rowsChanged(CardList& list);

} // namespace CardListFace
} // namespace tolvar
