declare module "page-script" {
  export function readFigures(): void;
}
