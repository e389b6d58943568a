"use strict";

// Marks the entry of the navigation bar that leads to the page being shown.
function markCurrentPage() {
  for (const link of document.querySelectorAll("nav a")) {
    if (link.pathname === location.pathname) {
      link.setAttribute("aria-current", "page");
    }
  }
}

// Sorts the rows of a table by the text of one column.
function sortByColumn(table, column) {
  const body = table.tBodies[0];
  const text = (row) => row.cells[column].textContent;
  const rows = Array.from(body.rows);
  rows.sort((a, b) => text(a).localeCompare(text(b), "en", { numeric: true }));
  body.append(...rows);
}

markCurrentPage();

for (const table of document.querySelectorAll("table.sortable")) {
  Array.from(table.tHead.rows[0].cells).forEach((head, column) => {
    head.addEventListener("click", () => sortByColumn(table, column));
  });
}
