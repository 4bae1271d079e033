#include "tools/qzlogview/expression.h"

#include <algorithm>
#include <functional>

#include "tools/common/ascii.h"
#include "tools/qzlogview/arguments.h"

namespace zantlog::view {

namespace {

// Both in lower case already, as far as they are ASCII.
bool containsIgnoringCase(std::string_view text, const std::string &wanted) {
    return std::search(text.begin(), text.end(), wanted.begin(), wanted.end(),
                       [](char a, char b) { return tools::lower(a) == b; }) != text.end();
}

bool anyArgument(const std::vector<Argument> &arguments,
                 const std::function<bool(const std::string &)> &holds) {
    return std::any_of(arguments.begin(), arguments.end(), [&](const Argument &argument) {
        return argument.kind == ZANTLIS_NESTED ? anyArgument(argument.nested, holds) : holds(argument.text);
    });
}

} // namespace

Expression Expression::join(Kind kind, std::vector<Expression> children) {
    if (children.size() == 1) {
        return std::move(children.front());
    }
    Expression expression;
    expression.kind_ = kind;
    expression.children_ = std::move(children);
    return expression;
}

Expression Expression::invert(Expression child) {
    Expression expression;
    expression.kind_ = Kind::inverse;
    expression.children_.push_back(std::move(child));
    return expression;
}

Expression Expression::compareNumber(const WhereField &field, Comparison comparison, int64_t number) {
    Expression expression;
    expression.field_ = &field;
    expression.comparison_ = comparison;
    expression.number_ = number;
    return expression;
}

Expression Expression::compareText(const WhereField &field, Comparison comparison, const std::string &text) {
    Expression expression;
    expression.field_ = &field;
    expression.comparison_ = comparison;
    expression.text_ = comparison == Comparison::containsIgnoringCase ? tools::lowered(text) : text;
    return expression;
}

Expression Expression::matchText(const WhereField &field, Regex regex) {
    Expression expression;
    expression.field_ = &field;
    expression.comparison_ = Comparison::matches;
    expression.regex_ = std::make_shared<const Regex>(std::move(regex));
    return expression;
}

bool Expression::compares(int64_t value) const {
    switch (comparison_) {
    case Comparison::equal:
        return value == number_;
    case Comparison::notEqual:
        return value != number_;
    case Comparison::less:
        return value < number_;
    case Comparison::lessOrEqual:
        return value <= number_;
    case Comparison::greater:
        return value > number_;
    case Comparison::greaterOrEqual:
        return value >= number_;
    default:
        return false;
    }
}

bool Expression::compares(std::string_view value) const {
    switch (comparison_) {
    case Comparison::equal:
        return value == text_;
    case Comparison::notEqual:
        return value != text_;
    case Comparison::less:
        return value < text_;
    case Comparison::lessOrEqual:
        return value <= text_;
    case Comparison::greater:
        return value > text_;
    case Comparison::greaterOrEqual:
        return value >= text_;
    case Comparison::contains:
        return value.find(text_) != std::string_view::npos;
    case Comparison::containsIgnoringCase:
        return containsIgnoringCase(value, text_);
    case Comparison::startsWith:
        return value.starts_with(text_);
    case Comparison::endsWith:
        return value.ends_with(text_);
    case Comparison::matches:
        return regex_->isFoundIn(value);
    }
    return false;
}

// Any of the arguments has to compare.
bool Expression::comparesArguments(const Record &record) const {
    return record.fields.lis.first != nullptr &&
           anyArgument(argumentsOf(record.fields.lis),
                       [this](const std::string &text) { return compares(text); });
}

bool Expression::holdsFor(const Record &record) const {
    const auto holds = [&](const Expression &child) { return child.holdsFor(record); };
    switch (kind_) {
    case Kind::both:
        return std::all_of(children_.begin(), children_.end(), holds);
    case Kind::either:
        return std::any_of(children_.begin(), children_.end(), holds);
    case Kind::inverse:
        return !holds(children_.front());
    case Kind::comparison:
        break;
    }
    if (field_->kind == WhereKind::arguments) {
        return comparesArguments(record);
    }
    if (field_->kind == WhereKind::text) {
        const std::optional<std::string_view> value = field_->text(record);
        return value && compares(*value);
    }
    const std::optional<int64_t> value = field_->number(record);
    return value && compares(*value);
}

} // namespace zantlog::view
