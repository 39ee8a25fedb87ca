// The table of the operations: what the page calls each, and the procedure of src/desk/desk_interface.h behind it. The
// procedures that the core exports (wasm.cmake) and what the page can ask for (protocol.ts) are taken from here.

export const operations = {
  parts: "desk_list_parts",
  open: "desk_open",
  openPair: "desk_open_pair",
  change: "desk_change",
  write: "desk_write",
  check: "desk_check",
  chooseFindings: "desk_choose_findings",
  listFindings: "desk_list_findings",
  corrections: "desk_set_corrections",
  correct: "desk_correct",
  goOn: "desk_go_on",
  findingLines: "desk_finding_lines",
  run: "desk_run",
  find: "desk_find",
  animal: "desk_animal",
  position: "desk_position",
  chooseAnimals: "desk_choose_animals",
  listAnimals: "desk_list_animals",
  pair: "desk_pair",
  rankMales: "desk_rank_males",
  orderMales: "desk_order_males",
  listMales: "desk_list_males",
  listed: "desk_find_listed",
  born: "desk_find_born",
  leaveOut: "desk_leave_out",
  compareMates: "desk_compare_mates",
  board: "desk_set_board",
  plan: "desk_plan",
  listPlan: "desk_list_plan",
  changePlan: "desk_change_plan",
  forecastFields: "desk_list_forecast_fields",
  forecast: "desk_forecast",
  growForecast: "desk_grow_forecast",
  text: "desk_text",
  bytes: "desk_text",
  language: "desk_set_language",
} as const;

/** Procedures that are no operation: they make the desk, hand over what it answers, and end it. */
export const upkeep = {
  create: "desk_create",
  answer: "desk_answer",
  answerSize: "desk_answer_size",
  destroy: "desk_destroy",
} as const;
