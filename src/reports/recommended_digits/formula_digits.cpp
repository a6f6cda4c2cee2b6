#include "reports/recommended_digits/formula_digits.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "data/basic_text.h"

namespace numarel {

std::string RemoveAll(std::string_view text, std::string_view piece) {
    std::string out(text);
    if (piece.empty()) return out;
    // Taking a piece out can join two halves into a new occurrence, hence the fresh start.
    for (std::size_t at = out.find(piece); at != std::string::npos; at = out.find(piece))
        out.erase(at, piece.size());
    return out;
}

std::string DecimalText(double value) {
    if (value == 0 || !std::isfinite(value)) return "0";
    // The 15 significant digits and the exponent, then laid out without the exponent.
    char buf[40];
    auto [end, ec] =
        std::to_chars(buf, buf + sizeof buf, std::fabs(value), std::chars_format::scientific, 14);
    if (ec != std::errc()) return "0";
    std::string_view sci(buf, static_cast<std::size_t>(end - buf));
    const std::size_t e = sci.find('e');
    std::string digits;
    for (char c : sci.substr(0, e))
        if (c != '.') digits += c;
    while (digits.size() > 1 && digits.back() == '0')
        digits.pop_back();
    const int exponent = std::atoi(std::string(sci.substr(e + 1)).c_str());

    std::string out = value < 0 ? "-" : "";
    if (exponent < 0) {
        out += '.';
        out.append(static_cast<std::size_t>(-exponent - 1), '0');
        out += digits;
        return out;
    }
    const auto whole = static_cast<std::size_t>(exponent) + 1;
    if (digits.size() <= whole) {
        out += digits;
        out.append(whole - digits.size(), '0');
    } else {
        out.append(digits, 0, whole);
        out += '.';
        out.append(digits, whole);
    }
    return out;
}

std::string LeadingDigits(double value, int count) {
    // One walk over the text, the leading "0" first where the value is below 1: points are
    // passed over and each character is kept at its first appearance only.
    const std::string text = DecimalText(value);
    const std::string_view lead = value < 1 ? "0" : "";
    std::string out;
    std::array<bool, 256> seen{};
    for (std::string_view part : {lead, std::string_view(text)}) {
        for (char c : part) {
            if (static_cast<int>(out.size()) >= count) return out;
            auto& known = seen[static_cast<unsigned char>(c)];
            if (c == '.' || known) continue;
            known = true;
            out += c;
        }
    }
    return out;
}

namespace {

// The values are often short fractions, whose low bits are all 0: the high half is folded in
// before the bits are mixed.
std::size_t SlotOf(std::uint64_t bits, std::size_t mask) {
    return static_cast<std::size_t>(((bits ^ (bits >> 32)) * 0x9E3779B97F4A7C15ull) >> 32) & mask;
}

}  // namespace

const std::string& LeadingDigitsMemo::operator()(double value) {
    const double key = value == 0 ? 0.0 : value;  // -0 as 0
    std::uint64_t bits = 0;
    std::memcpy(&bits, &key, sizeof bits);
    if ((texts_.size() + 1) * 2 > slots_.size()) Grow();
    const std::size_t mask = slots_.size() - 1;
    std::size_t i = SlotOf(bits, mask);
    for (; slots_[i].text != 0; i = (i + 1) & mask)
        if (slots_[i].bits == bits) return texts_[slots_[i].text - 1];
    texts_.push_back(LeadingDigits(value, count_));
    slots_[i] = {bits, static_cast<std::uint32_t>(texts_.size())};
    return texts_.back();
}

void LeadingDigitsMemo::Grow() {
    std::vector<Slot> slots(std::max<std::size_t>(64, slots_.size() * 2));
    const std::size_t mask = slots.size() - 1;
    for (const Slot& slot : slots_) {
        if (slot.text == 0) continue;
        std::size_t i = SlotOf(slot.bits, mask);
        while (slots[i].text != 0)
            i = (i + 1) & mask;
        slots[i] = slot;
    }
    slots_ = std::move(slots);
}

double DrawnNumberOf(std::string_view label) {
    std::string_view trimmed = Trim(label);
    if (trimmed.size() > 3) trimmed.remove_prefix(trimmed.size() - 3);
    return LeadingValue(trimmed);
}

int WholeDrawnNumber(std::string_view label) {
    if (const int digits = TrailingThreeDigits(label); digits >= 0) return digits;
    const double n = DrawnNumberOf(label);
    return n >= 0 && n < 1000 && n == std::floor(n) ? static_cast<int>(n) : -1;
}

}  // namespace numarel
