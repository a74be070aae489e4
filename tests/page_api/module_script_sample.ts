// Uses the global of the module in a classic script. This file is compiled, not run.

/// <reference types="velmora-app" />

VelmoraApp.on('theme', (_, [theme]: VelmoraApp.Received[]) => {
  document.documentElement.className = String(theme);
  return true;
});
VelmoraApp.request('host.send', [['result', VelmoraApp.encode({ a: 1 })]])
  .then(([value = null]) => VelmoraApp.decode(value));
