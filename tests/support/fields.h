#pragma once
#include "core/records.h"

#include <gtest/gtest.h>

#include <span>
#include <string_view>

namespace sm::test {

void Give_Fields(void* record, std::span<const FIELD> fields, std::string_view values);
testing::AssertionResult Has_Fields(const void* record, std::span<const FIELD> fields, std::string_view values);

/// Sets fields of a record, told as "MOBILITY 3, MISSION Hasty Defense, SIDE RED".
template <class Record>
void Give(Record& record, std::string_view values)
{
    Give_Fields(&record, Fields<Record>(), values);
}

/// Whether the fields told hold exactly these values: numbers in their shortest form, texts without trailing
/// blanks.
template <class Record>
testing::AssertionResult Has(const Record& record, std::string_view values)
{
    return Has_Fields(&record, Fields<Record>(), values);
}

}   // namespace sm::test
