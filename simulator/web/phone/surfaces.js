// The colours under texts, the same as in styles/tokens.css; needed here to keep given text colours legible.
export const cellBackground = { light: '#ffffff', dark: '#1c1c1e' };
export const pageBackground = { light: '#f2f2f7', dark: '#000000' };
