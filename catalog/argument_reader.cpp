#include "catalog/argument_reader.h"

namespace zantlog::catalog {

ArgumentReader::ArgumentReader(va_list arguments, const FormatSummary &summary) {
    va_copy(list_, arguments);
    for (int32_t index = 0; index < summary.positions; ++index) {
        positioned_[index] = takeNext(summary.classes[index]);
    }
}

ArgumentValue ArgumentReader::take(int32_t position, ArgumentClass passed) {
    return position != 0 ? positioned_[position - 1] : takeNext(passed);
}

ArgumentValue ArgumentReader::takeNext(ArgumentClass passed) {
    ArgumentValue value{};
    switch (passed) {
    case ArgumentClass::int32:
        value.int32 = va_arg(list_, int);
        break;
    case ArgumentClass::int64:
        value.int64 = va_arg(list_, int64_t);
        break;
    case ArgumentClass::real:
        value.real = va_arg(list_, double);
        break;
    case ArgumentClass::pointer:
        value.pointer = va_arg(list_, const void *);
        break;
    case ArgumentClass::none:
        break;
    }
    return value;
}

} // namespace zantlog::catalog
