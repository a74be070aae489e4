function FindProxyForURL(url, host) {
  return 'DIRECT';
}
