// How well texts stand out, as the accessibility guidelines count it: 4.5 is enough for any text.

// Of all visible texts, the one that stands out least: { ratio, text }.
export function leastContrast(page) {
  return page.evaluate(() => {
    const numbers = (colour) => colour.match(/[\d.]+/g).map(Number);
    const isSolid = (colour) => (numbers(colour)[3] ?? 1) === 1;
    const channel = (value) => (value / 255 <= 0.04045 ? value / 255 / 12.92 : ((value / 255 + 0.055) / 1.055) ** 2.4);
    const luminance = (colour) => {
      const [red, green, blue] = numbers(colour).map(channel);
      return 0.2126 * red + 0.7152 * green + 0.0722 * blue;
    };
    const backgroundOf = (element) => {
      const { backgroundColor } = getComputedStyle(element);
      return isSolid(backgroundColor) || !element.parentElement ? backgroundColor : backgroundOf(element.parentElement);
    };
    let least = { ratio: Infinity };
    const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
    while (walker.nextNode()) {
      const { parentElement: parent, textContent: text } = walker.currentNode;
      if (text.trim() === '' || !parent.checkVisibility() || parent.closest('script, option, noscript, :disabled')) continue;
      const isShape = parent instanceof SVGElement;
      const style = getComputedStyle(parent);
      const [a, b] = [isShape ? style.fill : style.color, backgroundOf(parent)].map(luminance);
      const ratio = (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05);
      if (ratio < least.ratio) least = { ratio, text: text.trim().slice(0, 40) };
    }
    return least;
  });
}
