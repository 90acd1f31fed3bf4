#pragma once

#include "network/tables.h"

#include <cstddef>
#include <cstdint>
#include <vector>

/// What an edit changed in the tables: the fields that differ, each with its bytes before and
/// after. A field is one number or name of a station, system or net, one station's part in a net,
/// one private height or one icon. The settings of the coverages are no part of it.
struct TablesDelta {
    struct Field {
        std::uint32_t offset = 0; ///< in the tables, bytes
        std::uint32_t size = 0;   ///< bytes
    };
    std::vector<Field> fields;     ///< in the order of the tables
    std::vector<std::byte> before; ///< of all fields, one behind the other
    std::vector<std::byte> after;

    bool empty() const { return fields.empty(); }
};

TablesDelta tablesdelta(const NetworkTables& before, const NetworkTables& after);

/// Writes the fields of a change into the tables, as they were before or after it. Everything else
/// stays.
void writebefore(const TablesDelta& delta, NetworkTables& tables);
void writeafter(const TablesDelta& delta, NetworkTables& tables);
