// Search in all names: what holds each of the words, anywhere, is found. The names, their pages and
// what they belong to are in search_index.js.
(() => {
  const box = document.getElementById("search_words");
  const list = document.getElementById("search_results");
  const shown = 100;
  const names = searchIndex.map(([name]) => name.toLowerCase());

  // Where a word stands: 0 at the start of a name, 1 at that of one of its parts, 2 elsewhere.
  const place = (name, word) => {
    const rest = name.replace(/^moxs/, "");
    const at = rest.indexOf(word);
    return at === 0 ? 0 : at > 0 && /[^a-z0-9]/.test(rest[at - 1]) ? 1 : 2;
  };

  const find = (text) => {
    const words = text.toLowerCase().split(/\s+/).filter(Boolean);
    if (words.length === 0) return [];
    return names
      .map((name, i) => ({ name, i }))
      .filter(({ name }) => words.every((word) => name.includes(word)))
      .map((hit) => ({ ...hit, rank: words.reduce((sum, word) => sum + place(hit.name, word), 0) }))
      .sort((a, b) => a.rank - b.rank || a.name.length - b.name.length || a.i - b.i)
      .map(({ i }) => searchIndex[i]);
  };

  const show = () => {
    const hits = find(box.value);
    list.replaceChildren(...hits.slice(0, shown).map(([name, page, of]) => {
      const item = document.createElement("li");
      const link = document.createElement("a");
      link.href = page;
      link.textContent = name;
      const note = document.createElement("span");
      note.textContent = of;
      item.append(link, note);
      return item;
    }));
    const rest = document.createElement("li");
    rest.textContent =
      hits.length === 0 ? "nothing found" : hits.length > shown ? `and ${hits.length - shown} more` : "";
    if (rest.textContent) list.append(rest);
    list.hidden = box.value.trim() === "";
  };

  // Arrow keys walk through the results.
  const step = (event) => {
    const links = [box, ...list.querySelectorAll("a")];
    const by = { ArrowDown: 1, ArrowUp: -1 }[event.key];
    if (event.key === "Escape") list.hidden = true;
    if (event.key === "Enter" && event.target === box && links.length > 1) links[1].click();
    if (!by) return;
    links[(links.indexOf(document.activeElement) + by + links.length) % links.length].focus();
    event.preventDefault();
  };

  box.addEventListener("input", show);
  box.addEventListener("focus", show);
  document.getElementById("search").addEventListener("keydown", step);
  document.addEventListener("keydown", (event) => {
    if (event.key === "/" && document.activeElement === document.body) {
      box.focus();
      event.preventDefault();
    }
  });
  document.addEventListener("click", (event) => {
    if (!event.target.closest("#search")) list.hidden = true;
  });
})();
