// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/allgemein.h"

#include <QByteArray>
#include <QByteArrayList>

#include <functional>

/// One key of a settings or search file: how its value is read into an `Owner`, and the values that are written. A
/// table of these rows is all that a file format needs; the rows stand in the order in which they are written.
///
/// The makers take `field`, which leads from an owner to the value: a pointer to a member, or a function that takes
/// the owner by `auto&` and returns a reference.
template <typename Owner> struct StoredSetting {
    QByteArrayView key;
    std::function<void(Owner& owner, const QByteArray& value)> read;
    /// Each value gets a line of its own; without a value there is no line.
    std::function<QByteArrayList(const Owner& owner)> write;

    /// A text, as it stands.
    template <typename Field> static StoredSetting text(QByteArrayView key, Field field)
    {
        return { key, [field](Owner& owner, const QByteArray& value) { std::invoke(field, owner) = value; },
            [field](const Owner& owner) -> QByteArrayList {
                return { std::invoke(field, owner) };
            } };
    }
    /// A switch: "1" or "0"; on when the number that is read is greater than 0.
    template <typename Field> static StoredSetting onOff(QByteArrayView key, Field field)
    {
        return { key,
            [field](
                Owner& owner, const QByteArray& value) { std::invoke(field, owner) = allgemein::readSwitch(value); },
            [field](const Owner& owner) -> QByteArrayList {
                return { allgemein::writeSwitch(std::invoke(field, owner)) };
            } };
    }
    /// A whole number of 32 bits; what is below `least` is read as `least`.
    template <typename Field> static StoredSetting number(QByteArrayView key, Field field, qint32 least)
    {
        return { key,
            [field, least](Owner& owner, const QByteArray& value) {
                std::invoke(field, owner) = qMax(least, allgemein::leadingNumber32(value));
            },
            [field](const Owner& owner) -> QByteArrayList {
                return { QByteArray::number(std::invoke(field, owner)) };
            } };
    }
};

/// Applies one line to `owner`; false for a key that the table does not have.
template <typename Owner, typename Table>
bool readSetting(Owner& owner, const Table& table, const QByteArray& key, const QByteArray& value)
{
    for (const StoredSetting<Owner>& setting : table) {
        if (setting.key == key) {
            setting.read(owner, value);
            return true;
        }
    }
    return false;
}

/// Writes the lines of a whole table.
template <typename Owner, typename Table> void writeSettings(QIODevice& file, const Owner& owner, const Table& table)
{
    for (const StoredSetting<Owner>& setting : table)
        allgemein::writeListItems(file, setting.key, setting.write(owner));
}
