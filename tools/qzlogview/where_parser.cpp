#include "tools/qzlogview/where_parser.h"

#include <utility>

#include "tools/common/ascii.h"
#include "tools/common/suggestions.h"
#include "tools/qzlogview/shown_text.h"
#include "tools/qzlogview/where_lexer.h"

namespace zantlog::view {

namespace {

constexpr int kDeepest = 500;

struct Operator {
    std::string_view symbol;
    Comparison comparison;
    bool forNumbers;
};

constexpr Operator kOperators[] = {
    {"==", Comparison::equal, true},
    {"=", Comparison::equal, true},
    {"!=", Comparison::notEqual, true},
    {"<", Comparison::less, true},
    {"<=", Comparison::lessOrEqual, true},
    {">", Comparison::greater, true},
    {">=", Comparison::greaterOrEqual, true},
    {"contains", Comparison::contains, false},
    {"icontains", Comparison::containsIgnoringCase, false},
    {"startswith", Comparison::startsWith, false},
    {"endswith", Comparison::endsWith, false},
    {"matches", Comparison::matches, false},
};

// Recursive descent: or, and, not, comparison.
class Parser {
public:
    Parser(std::string_view expression, const WhereContext &context)
        : expression_(expression), context_(context), words_(whereWords(expression)) {}

    Expression parse() {
        Expression whole = either(0);
        if (word().token != WhereToken::end) {
            fail("\"&&\", \"||\" or the end was expected here");
        }
        return whole;
    }

private:
    [[nodiscard]] const WhereWord &word() const { return words_[at_]; }
    [[noreturn]] void fail(const std::string &what) const { failAt(word(), what); }
    [[noreturn]] void failAt(const WhereWord &place, const std::string &what) const {
        whereError(expression_, place.position, what);
    }
    bool take(std::string_view symbol, std::string_view name = "") {
        const bool there = (word().token == WhereToken::symbol && word().text == symbol) ||
                           (word().token == WhereToken::name && !name.empty() && word().text == name);
        at_ += there ? 1 : 0;
        return there;
    }

    Expression either(int depth) {
        std::vector<Expression> parts;
        do {
            parts.push_back(both(depth));
        } while (take("||", "or"));
        return Expression::join(Expression::Kind::either, std::move(parts));
    }

    Expression both(int depth) {
        std::vector<Expression> parts;
        do {
            parts.push_back(single(depth));
        } while (take("&&", "and"));
        return Expression::join(Expression::Kind::both, std::move(parts));
    }

    Expression single(int depth) {
        if (depth >= kDeepest) {
            fail("this is nested too deeply");
        }
        if (take("!", "not")) {
            return Expression::invert(single(depth + 1));
        }
        if (take("(")) {
            Expression inside = either(depth + 1);
            if (!take(")")) {
                fail("a \")\" was expected here");
            }
            return inside;
        }
        return comparison();
    }

    const WhereField &field() {
        if (word().token != WhereToken::name) {
            fail("a field was expected here, such as product, time, severity or text");
        }
        const WhereField *found = findWhereField(word().text);
        if (found == nullptr) {
            constexpr size_t kLongest = 40; // that could be meant for one
            const std::string name = word().text.substr(0, kLongest);
            fail("there is no field " + quoted(word().text) +
                 tools::didYouMean(tools::nearest(name, whereFieldNames())));
        }
        ++at_;
        return *found;
    }

    Expression comparison() {
        const WhereField &left = field();
        if (take("in", "in")) {
            return oneOf(left);
        }
        for (const Operator &candidate : kOperators) {
            if (word().token == WhereToken::end || word().token == WhereToken::text ||
                word().text != candidate.symbol) {
                continue;
            }
            if (!candidate.forNumbers && left.kind != WhereKind::text && left.kind != WhereKind::arguments) {
                fail(std::string(left.name) + " is no text: compare it with ==, !=, <, <=, > or >=");
            }
            ++at_;
            return compare(left, candidate.comparison);
        }
        fail("a comparison was expected here: ==, !=, <, <=, >, >=, in, contains, icontains, startswith, "
             "endswith or matches");
    }

    Expression oneOf(const WhereField &left) {
        if (!take("(")) {
            fail("a \"(\" was expected here, and values between commas");
        }
        std::vector<Expression> parts;
        do {
            parts.push_back(compare(left, Comparison::equal));
        } while (take(","));
        if (!take(")")) {
            fail("a \",\" or a \")\" was expected here");
        }
        return Expression::join(Expression::Kind::either, std::move(parts));
    }

    Expression compare(const WhereField &left, Comparison comparison) {
        const WhereWord &value = word();
        if (left.kind == WhereKind::number || left.kind == WhereKind::time) {
            const int64_t number = left.kind == WhereKind::time ? timeValue(value) : numberValue(left, value);
            ++at_;
            return Expression::compareNumber(left, comparison, number);
        }
        if (value.token != WhereToken::text) {
            fail("a text between quotation marks was expected here: " + std::string(left.name) +
                 " is a text");
        }
        ++at_;
        if (comparison != Comparison::matches) {
            return Expression::compareText(left, comparison, value.text);
        }
        Regex::Error error;
        std::optional<Regex> regex = Regex::compile(value.text, &error);
        if (!regex) {
            whereError(expression_, placeInText(expression_, value, error.position),
                       "the regular expression is wrong: " + error.what);
        }
        return Expression::matchText(left, std::move(*regex));
    }

    int64_t numberValue(const WhereField &left, const WhereWord &value) const {
        if (value.token == WhereToken::number) {
            const auto number = static_cast<int64_t>(value.number);
            return value.negative ? -number : number;
        }
        const bool word = value.token == WhereToken::name || value.token == WhereToken::text;
        if (word && left.named != nullptr) {
            if (const auto number = left.named(tools::lowered(value.text))) {
                return *number;
            }
            fail("there is no " + std::string(left.name) + " " + quoted(value.text));
        }
        fail("a number was expected here: " + std::string(left.name) + " is a number");
    }

    int64_t timeValue(const WhereWord &value) const {
        if (value.token != WhereToken::text && value.token != WhereToken::name) {
            fail("a time between quotation marks was expected here, such as \"2026-11-20 14:03\" or \"-3h\"");
        }
        try {
            return timeFromText(value.text, context_.now, context_.zone);
        } catch (const tools::ToolError &error) {
            fail(error.what());
        }
    }

    std::string_view expression_;
    const WhereContext &context_;
    std::vector<WhereWord> words_;
    size_t at_ = 0;
};

} // namespace

Expression parseWhere(std::string_view expression, const WhereContext &context) {
    return Parser(expression, context).parse();
}

Regex compileRegex(std::string_view expression) {
    Regex::Error error;
    std::optional<Regex> regex = Regex::compile(expression, &error);
    if (!regex) {
        whereError(expression, error.position, "the regular expression is wrong: " + error.what);
    }
    return std::move(*regex);
}

} // namespace zantlog::view
