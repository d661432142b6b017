// Steps through the states of a run: by buttons, slider, arrow keys, a click into the run's picture
// or on a row of the table. Everything that it shows of a state comes from the page's data, as text;
// nothing is ever read as HTML.
"use strict";

(() => {
  const find = (id) => document.getElementById(id);
  const data = JSON.parse(find("run-data").textContent);
  const last = data.states.length - 1;
  const lanes = document.querySelector("#lanes svg");
  const drawing = document.querySelector("#drawing svg");  // null where the network is not drawn
  let present = 0;

  function made(name, text, type) {
    const element = document.createElement(name);
    if (text !== undefined) element.textContent = text;
    if (type) element.className = type;
    return element;
  }

  // --- Words. ---

  function change(process, from, to) {
    const { name, locations } = data.processes[process];
    return from === to ? `${name} stays in ${locations[to]}`
                       : `${name}: ${locations[from]} \u2192 ${locations[to]}`;
  }

  function words(state) {
    const { time, step } = data.states[state];
    const where = `State ${state} of ${last}, at time ${time}` +
                  (state === data.goal ? ", the goal" : "");
    if (!step) return `${where}: the start`;
    const before = data.states[state - 1].at;
    const after = data.states[state].at;
    const changes = step.moved.slice(0, 6).map((p) => change(p, before[p], after[p]));
    if (step.moved.length > 6) changes.push(`${step.moved.length - 6} more`);
    const waited = step.delay === "0" ? "" : `after a delay of ${step.delay}, `;
    return `${where}: ${waited}${step.transition} ${step.interval} fired. ${changes.join(", ")}`;
  }

  // --- The table of processes. ---

  const rows = data.processes.map((process) => {
    const row = made("tr");
    const name = made("th", process.name);
    name.scope = "row";
    row.append(name, made("td"), made("td", "", "number"));
    return row;
  });

  function buildProcesses() {
    const head = made("tr");
    for (const [title, type] of [["process"], ["location"], ["clock", "number"]]) {
      const cell = made("th", title, type);
      cell.scope = "col";
      head.append(cell);
    }
    const top = made("thead");
    top.append(head);
    const body = made("tbody");
    body.append(...rows);
    find("processes").append(top, body);
  }

  function showProcesses(state) {
    const { at, clocks, step, propositions } = data.states[state];
    rows.forEach((row, p) => {
      row.cells[1].textContent = data.processes[p].locations[at[p]];
      row.cells[2].textContent = clocks[p];
      row.classList.toggle("moved", step !== null && step.moved.includes(p));
    });
    find("state-heading").textContent = `State ${state}`;
    find("holding").textContent =
      propositions.length === 0 ? "" : `What holds: ${propositions.join(", ")}`;
  }

  // --- The pictures. ---

  const { top, bottom } = data.lanes;
  const column = drawn("rect", { class: "column", y: top, height: bottom - top, rx: 3 });

  // A picture that scrolls, never the page: the reader stays where he is.
  function showColumn(state) {
    const { from, to } = data.states[state];
    column.setAttribute("x", from);
    column.setAttribute("width", to - from);
    const view = find("lanes");
    const scale = lanes.getBoundingClientRect().width / lanes.viewBox.baseVal.width;
    const room = view.clientWidth / 3;
    if (from * scale < view.scrollLeft + room) view.scrollLeft = from * scale - room;
    if (to * scale > view.scrollLeft + 2 * room) view.scrollLeft = to * scale - 2 * room;
  }

  // Processes that are alike may be drawn once: then it is told which of them are here, or how many.
  function badge(location, processes) {
    const names = processes.map((p) => data.processes[p].name);
    const some = names.join(", ");
    const group = drawn("g", { class: "who" });
    const title = drawn("title", {});
    title.textContent = some;
    const box = location.getBBox();
    const words = some.length <= 14 ? some : `${names.length} here`;
    const width = 7.2 * words.length + 10;
    const left = box.x + box.width - Math.min(width, box.width) / 2 - width / 2;
    const text = drawn("text", { x: left + width / 2, y: box.y + 3 });
    text.textContent = words;
    group.append(title, drawn("rect", { x: left, y: box.y - 9, width, height: 16, rx: 8 }), text);
    location.append(group);
  }

  function drawn(name, attributes) {
    const element = document.createElementNS("http://www.w3.org/2000/svg", name);
    for (const [key, value] of Object.entries(attributes)) element.setAttribute(key, value);
    return element;
  }

  // Of all that one drawing of a location stands for, those that are there.
  function markHere(at) {
    const here = new Map();
    at.forEach((location, p) => {
      for (const element of drawing.querySelectorAll(`.at-${p + 1}-${location}`))
        here.set(element, [...(here.get(element) ?? []), p]);
    });
    for (const [element, processes] of here) {
      element.classList.add("here");
      const standsFor = [...element.classList].filter((name) => name.startsWith("at-")).length;
      if (standsFor > 1) badge(element, processes);
    }
  }

  function showLocations(state) {
    if (!drawing) return;
    for (const element of drawing.querySelectorAll(".who")) element.remove();
    for (const type of ["here", "fired"])
      for (const element of drawing.querySelectorAll(`.${type}`)) element.classList.remove(type);
    const { at, step } = data.states[state];
    markHere(at);
    const fired = step ? drawing.querySelectorAll(`.fires-${step.number}`) : [];
    for (const element of fired) element.classList.add("fired");
  }

  // --- The states. ---

  const table = find("states").tBodies[0].rows;

  function show(state) {
    table[present].removeAttribute("aria-current");
    present = Math.max(0, Math.min(last, state));
    table[present].setAttribute("aria-current", "step");
    const slider = find("slider");
    slider.value = present;
    slider.setAttribute("aria-valuetext", `state ${present} of ${last}`);
    for (const id of ["first", "back"]) find(id).setAttribute("aria-disabled", present === 0);
    for (const id of ["last", "forward"]) find(id).setAttribute("aria-disabled", present === last);
    find("words").textContent = words(present);
    showProcesses(present);
    showColumn(present);
    showLocations(present);
  }

  // The last state that is entered left of a point of the picture.
  function stateAt(x) {
    const later = data.states.findIndex((state) => state.from > x);
    return later < 0 ? last : Math.max(0, later - 1);
  }

  function onKey(event) {
    if (event.altKey || event.ctrlKey || event.metaKey || event.shiftKey) return;
    if (event.target === find("slider")) return;  // it has keys of its own
    const by = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
    if (by === undefined) return;
    event.preventDefault();
    show(present + by);
  }

  function onLanes(event) {
    const point = new DOMPoint(event.clientX, event.clientY);
    show(stateAt(point.matrixTransform(lanes.getScreenCTM().inverse()).x));
  }

  function onTable(event) {
    const row = event.target.closest("tr[data-state]");
    if (row) show(Number(row.dataset.state));
  }

  buildProcesses();
  lanes.append(column);
  if (drawing) drawing.classList.add("stepping");
  find("slider").addEventListener("input", (event) => show(Number(event.target.value)));
  find("first").addEventListener("click", () => show(0));
  find("back").addEventListener("click", () => show(present - 1));
  find("forward").addEventListener("click", () => show(present + 1));
  find("last").addEventListener("click", () => show(last));
  find("states").addEventListener("click", onTable);
  lanes.addEventListener("click", onLanes);
  document.addEventListener("keydown", onKey);
  show(0);
})();
