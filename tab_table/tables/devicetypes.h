#pragma once

#include "cellwriting.h"

#include <QStringList>

/// The list of devices as it is read and written; its columns.
enum class DeviceColumn { Id, Name, Type };

/// The names of all types of devices, in their order; nothing after a reported failure.
std::optional<QStringList> readDeviceTypes(const Db &db);
/// Why a device cannot be of the type of that name; empty when it can, as without any.
QString deviceTypeRefusal(const QStringList &types, const QString &type);
/// The writer of the type of a device: of a row that is there, and only over what the list showed. An empty
/// value stands for no type.
CellWritten writeDeviceType(const Db &db, const CellDraft &draft);
