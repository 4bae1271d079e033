// The HTML report in a browser: what a reader sees of it and does with it.
import './table_tests.mjs';
import './choosing_tests.mjs';
import './looks_tests.mjs';
import { runAll } from './run.mjs';

await runAll();
