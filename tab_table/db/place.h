#pragma once

#include <QtGlobal>

/// An id of the database, INT UNSIGNED there; 0 is none.
using DbId = quint32;

/// A place of the chain: a register, its shop and the shop's group. What is 0 is not known or, where places
/// are chosen, stands for all.
struct Place
{
    DbId group = 0;
    DbId shop = 0;
    DbId kass = 0;
};
