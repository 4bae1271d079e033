// What a record is asked: comparisons of its fields, joined.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tools/qzlogview/regex.h"
#include "tools/qzlogview/where_fields.h"

namespace zantlog::view {

enum class Comparison {
    equal,
    notEqual,
    less,
    lessOrEqual,
    greater,
    greaterOrEqual,
    contains,
    containsIgnoringCase,
    startsWith,
    endsWith,
    matches
};

// A tree of them. A comparison with a field that a record does not have is false, whatever it compares.
class Expression {
public:
    enum class Kind { both, either, inverse, comparison };

    static Expression join(Kind kind, std::vector<Expression> children);
    static Expression invert(Expression child);
    static Expression compareNumber(const WhereField &field, Comparison comparison, int64_t number);
    // Of texts and arguments; the comparison is no "matches".
    static Expression compareText(const WhereField &field, Comparison comparison, const std::string &text);
    static Expression matchText(const WhereField &field, Regex regex);

    [[nodiscard]] bool holdsFor(const Record &record) const;

    [[nodiscard]] Kind kind() const { return kind_; }
    [[nodiscard]] const std::vector<Expression> &children() const { return children_; }
    [[nodiscard]] const WhereField *field() const { return field_; }
    [[nodiscard]] Comparison comparison() const { return comparison_; }
    [[nodiscard]] int64_t number() const { return number_; }
    [[nodiscard]] const std::string &text() const { return text_; }

private:
    [[nodiscard]] bool compares(int64_t value) const;
    [[nodiscard]] bool compares(std::string_view value) const;
    [[nodiscard]] bool comparesArguments(const Record &record) const;

    Kind kind_ = Kind::comparison;
    std::vector<Expression> children_; // of an inverse: one
    const WhereField *field_ = nullptr;
    Comparison comparison_ = Comparison::equal;
    int64_t number_ = 0;
    std::string text_; // in lower case where case does not count
    std::shared_ptr<const Regex> regex_;
};

} // namespace zantlog::view
