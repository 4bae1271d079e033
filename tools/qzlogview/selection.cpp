#include "tools/qzlogview/selection.h"

#include <algorithm>

#include "tools/common/ascii.h"
#include "tools/common/code_page.h"
#include "tools/common/suggestions.h"
#include "tools/common/tool_error.h"
#include "tools/qzlogview/expression.h"
#include "tools/qzlogview/shown_text.h"
#include "tools/qzlogview/where_parser.h"
#include "zantlog/query.h"

namespace zantlog::view {

namespace {

using Parts = std::vector<Expression>;

const WhereField &fieldNamed(const char *name) {
    return *findWhereField(name);
}

using Records = std::vector<zantLogCfg *>;

// The configurations of some products; of all, with none named.
Records configurationsOf(const std::vector<int64_t> &products, const SelectionContext &context) {
    Records records;
    const uint32_t count = context.configurations == nullptr ? 0 : context.configurations->count();
    for (uint32_t i = 0; i < count; ++i) {
        zantLogCfg *const cfg = context.configurations->array()[i];
        if (products.empty() ||
            std::find(products.begin(), products.end(), cfg->productId) != products.end()) {
            records.push_back(cfg);
        }
    }
    return records;
}

// An id, or the id of a name; the library's own reading of both.
int64_t idOf(const std::string &option, const std::string &text, uint32_t fieldCode, Records *records) {
    const std::optional<uint64_t> number = tools::wholeNumber(text);
    if (number && *number > 0 && *number <= UINT32_MAX) {
        return static_cast<int64_t>(*number); // also of files whose product is not configured here
    }
    const uint32_t id = GetIdFromName(records->data(), static_cast<uint32_t>(records->size()), fieldCode,
                                      tools::codePageFromUtf8(text).c_str());
    if (number || id == 0) {
        tools::usageError(
            option + " takes an id from 1 to 4294967295, or a name of a configuration on this machine, not " +
            quoted(text));
    }
    return id;
}

// Any of the values.
void addAlternatives(Parts *parts, const std::vector<std::string> &values,
                     const std::function<Expression(const std::string &)> &make) {
    if (values.empty()) {
        return;
    }
    Parts alternatives;
    for (const std::string &value : values) {
        alternatives.push_back(make(value));
    }
    parts->push_back(Expression::join(Expression::Kind::either, std::move(alternatives)));
}

int64_t numberOf(const std::string &option, const std::string &text) {
    const std::optional<uint64_t> number = tools::wholeNumber(text);
    if (!number || *number > UINT32_MAX) {
        tools::usageError(option + " takes a number from 0 to 4294967295, not " + quoted(text));
    }
    return static_cast<int64_t>(*number);
}

Expression typeIs(const std::string &text) {
    const WhereField &type = fieldNamed("type");
    const auto number = type.named(tools::lowered(text));
    if (!number) {
        tools::usageError("--type takes debug, diagnostic, application, context or audit, not " +
                          quoted(text));
    }
    return Expression::compareNumber(type, Comparison::equal, *number);
}

// "2", "warning", ">=2".
Expression comparisonOf(const std::string &option, const WhereField &field, const std::string &text) {
    struct Prefix {
        std::string_view symbol;
        Comparison comparison;
    };
    constexpr Prefix kPrefixes[] = {{">=", Comparison::greaterOrEqual},
                                    {"<=", Comparison::lessOrEqual},
                                    {"!=", Comparison::notEqual},
                                    {"==", Comparison::equal},
                                    {">", Comparison::greater},
                                    {"<", Comparison::less},
                                    {"=", Comparison::equal}};
    std::string_view rest = text;
    Comparison comparison = Comparison::equal;
    for (const Prefix &prefix : kPrefixes) {
        if (rest.starts_with(prefix.symbol)) {
            comparison = prefix.comparison;
            rest.remove_prefix(prefix.symbol.size());
            break;
        }
    }
    const std::optional<uint64_t> number = tools::wholeNumber(rest);
    if (number && *number <= UINT32_MAX) {
        return Expression::compareNumber(field, comparison, static_cast<int64_t>(*number));
    }
    const auto named = field.named != nullptr ? field.named(tools::lowered(rest)) : std::nullopt;
    if (!named) {
        tools::usageError(option + " takes a number" +
                          (field.named != nullptr ? " or information, warning, error, severe, fatal" : "") +
                          ", and >= or another comparison before it, not " + quoted(text));
    }
    return Expression::compareNumber(field, comparison, *named);
}

Expression textIs(const char *field, const std::string &text) {
    return Expression::compareText(fieldNamed(field), Comparison::equal, text);
}

// What --not leaves alone.
Parts whose(const Selection &selection, const SelectionContext &context) {
    Parts parts;
    std::vector<int64_t> products;
    Records records = configurationsOf({}, context);
    addAlternatives(&parts, selection.products, [&](const std::string &text) {
        products.push_back(idOf("--product", text, ZANTLOG_QUERY_PRODUCT, &records));
        return Expression::compareNumber(fieldNamed("product"), Comparison::equal, products.back());
    });
    // Originators of several products may have the same name.
    records = configurationsOf(products, context);
    addAlternatives(&parts, selection.originators, [&](const std::string &text) {
        return Expression::compareNumber(fieldNamed("originator"), Comparison::equal,
                                         idOf("--originator", text, ZANTLOG_QUERY_ORIGINATOR, &records));
    });
    addAlternatives(&parts, selection.logSets,
                    [](const std::string &text) { return textIs("logset", text); });
    return parts;
}

void addTimes(Parts *parts, const Selection &selection, const SelectionContext &context) {
    const WhereField &time = fieldNamed("time");
    const auto add = [&](const std::optional<std::string> &text, Comparison comparison) {
        if (text) {
            parts->push_back(
                Expression::compareNumber(time, comparison, timeFromText(*text, context.now, context.zone)));
        }
    };
    add(selection.since, Comparison::greaterOrEqual);
    add(selection.until, Comparison::lessOrEqual);
}

Parts which(const Selection &selection, const SelectionContext &context) {
    Parts parts;
    addTimes(&parts, selection, context);
    addAlternatives(&parts, selection.types, typeIs);
    if (selection.severity) {
        parts.push_back(comparisonOf("--severity", fieldNamed("severity"), *selection.severity));
    }
    if (selection.level) {
        parts.push_back(comparisonOf("--level", fieldNamed("level"), *selection.level));
    }
    addAlternatives(&parts, selection.who, [](const std::string &text) { return textIs("who", text); });
    addAlternatives(&parts, selection.contexts,
                    [](const std::string &text) { return textIs("context", text); });
    addAlternatives(&parts, selection.processes, [](const std::string &text) {
        return Expression::compareNumber(fieldNamed("pid"), Comparison::equal, numberOf("--pid", text));
    });
    addAlternatives(&parts, selection.threads, [](const std::string &text) {
        return Expression::compareNumber(fieldNamed("tid"), Comparison::equal, numberOf("--tid", text));
    });
    if (selection.grep) {
        parts.push_back(Expression::matchText(fieldNamed("text"), compileRegex(*selection.grep)));
    }
    if (selection.where) {
        parts.push_back(parseWhere(*selection.where, {context.now, context.zone}));
    }
    return parts;
}

} // namespace

std::shared_ptr<const Expression> compileSelection(const Selection &selection,
                                                   const SelectionContext &context) {
    Parts all = whose(selection, context);
    Parts asked = which(selection, context);
    if (selection.inverted) {
        if (asked.empty()) {
            tools::usageError("--not inverts other options, and none of those is given");
        }
        all.push_back(Expression::invert(Expression::join(Expression::Kind::both, std::move(asked))));
    } else {
        std::move(asked.begin(), asked.end(), std::back_inserter(all));
    }
    if (all.empty()) {
        return nullptr;
    }
    return std::make_shared<const Expression>(Expression::join(Expression::Kind::both, std::move(all)));
}

bool matches(const Expression *expression, const Record &record) {
    return expression == nullptr || expression->holdsFor(record);
}

} // namespace zantlog::view
