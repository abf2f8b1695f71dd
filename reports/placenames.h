#pragma once

#include "place.h"

#include <QString>

class Db;

/// A place as the boxes of a PlaceSelector have it: PlaceSelector::showPlace().
struct PlaceNames
{
    DbId group = 0;
    QString shop;
    QString kass;
};

/// Of a shop its group is the shop's own. A failure is reported; what is not known is empty.
PlaceNames readPlaceNames(const Db &db, const Place &place);
