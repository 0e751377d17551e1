#pragma once

namespace Batch {

/// The style sheet of the HTML report. All colours are variables, which the dark scheme overrides.
inline constexpr const char* kTestReportStyle = R"css(:root {
  --page: #f6f7f9; --card: #ffffff; --text: #1c2430; --soft: #5c6878; --line: #dde2e9;
  --good: #1a7f4b; --good-back: #dff3e7; --bad: #b3261e; --bad-back: #fbe3e1; --warn: #8a5a00; --link: #1f5fbf;
}
@media (prefers-color-scheme: dark) {
  :root {
    --page: #12161c; --card: #1b2129; --text: #e4e8ee; --soft: #9aa7b8; --line: #303945;
    --good: #6fd3a0; --good-back: #173726; --bad: #ff9c94; --bad-back: #46201e; --warn: #f0c060; --link: #8ab8ff;
  }
}
* { box-sizing: border-box; }
body { margin: 0 auto; padding: 2rem 1.5rem 4rem; max-width: 72rem; background: var(--page); color: var(--text);
       font: 16px/1.5 system-ui, sans-serif; }
h1 { margin: 0 0 .25rem; font-size: 1.7rem; }
h2 { margin: 2.5rem 0 .75rem; font-size: 1.25rem; }
h3 { margin: 1.75rem 0 .5rem; font-size: 1rem; scroll-margin-top: 1rem; }
p { margin: .25rem 0 .75rem; }
a { color: var(--link); }
.soft { color: var(--soft); }
.good { color: var(--good); }
.bad { color: var(--bad); }
.warn { color: var(--warn); white-space: nowrap; }
.tiles { display: grid; grid-template-columns: repeat(auto-fit, minmax(9rem, 1fr)); gap: .75rem; margin: 1.5rem 0; }
.tile { padding: .75rem 1rem; background: var(--card); border: 1px solid var(--line); border-radius: .5rem; }
.tile b { display: block; font-size: 1.6rem; line-height: 1.2; font-variant-numeric: tabular-nums; }
.scroll { overflow-x: auto; background: var(--card); border: 1px solid var(--line); border-radius: .5rem; }
table { border-collapse: collapse; width: 100%; }
th, td { padding: .45rem .75rem; border-bottom: 1px solid var(--line); text-align: left; vertical-align: top; }
tbody tr:last-child > * { border-bottom: 0; }
thead th { color: var(--soft); font-size: .85rem; font-weight: 600; white-space: nowrap; }
.number { text-align: right; font-variant-numeric: tabular-nums; white-space: nowrap; }
td:first-child { min-width: 11rem; }
.path { display: block; color: var(--soft); font-size: .8rem; overflow-wrap: anywhere; }
td.rectangle { font-family: ui-monospace, monospace; font-size: .85rem; overflow-wrap: anywhere; }
.matrix { width: fit-content; max-width: 100%; }
.matrix th, .matrix td { text-align: center; min-width: 5.2rem; white-space: nowrap; }
.matrix tbody th { text-align: right; color: var(--soft); font-size: .85rem; }
.matrix td a { display: block; border-radius: .3rem; font-weight: 600; text-decoration: none; }
.matrix a.same { background: var(--good-back); color: var(--good); }
.matrix a.other { background: var(--bad-back); color: var(--bad); }
.matrix a:hover, .matrix a:focus { outline: 2px solid currentColor; }
meter { width: 6rem; vertical-align: middle; margin-right: .5rem; }
ul { padding-left: 1.25rem; }
:target { outline: 2px solid var(--link); outline-offset: .25rem; border-radius: .2rem; }
)css";

} // namespace Batch
